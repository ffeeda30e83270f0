#pragma once

#include <QDate>
#include <QString>
#include <QStringList>

namespace talvora {

/// What the search window asks of the testing records. An empty list asks nothing.
struct QueryCriteria {
    QString dateChoice;  ///< "0…" the last week, "1…" the last month, anything else from `from` to `to`
    QDate from;
    QDate to;      ///< up to the start of that day, since the records bear a time
    QString name;  ///< a part of it
    QStringList sexes;
    QStringList educations;
    QStringList positions;
    QStringList types;
    QStringList results;
};

/// The whole statement on TestingResult. `logic` joins the criteria: " and " or " or " for a statement to run. Without
/// the blanks ("and", "or"), as statements are saved, it may end in a word that nothing follows, and then fails when it
/// is run. Nothing is escaped.
QString BuildQuerySQL(const QueryCriteria& criteria, const QString& logic, const QDate& today = QDate::currentDate());

}  // namespace talvora
