#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <cstddef>

namespace talvora {

/// How an update statement sets a column to a text, which goes in as it stands: "Author='au'".
inline QString columnSetting(const QString& column, const QString& text) {
    return column + QStringLiteral("='") + text + u'\'';
}

/// The same for columns of one name that are numbered from 1, set to these members of the record in their order.
template <class Record, std::size_t Count>
QStringList numberedSettings(const QString& column, const Record& record,
                             const std::array<QString Record::*, Count>& members) {
    QStringList settings;
    for (const auto member : members) {
        settings += columnSetting(column + QString::number(settings.size() + 1), record.*member);
    }
    return settings;
}

}  // namespace talvora
