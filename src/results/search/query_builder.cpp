#include "results/search/query_builder.h"

#include "platform/moment.h"
#include "platform/text.h"

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int week = 7;
constexpr int month = 31;

// The dates compare as text with the moments in the table, which begin with the same form.
QString datePiece(const QueryCriteria& criteria, const QDate& today) {
    const QChar choice = criteria.dateChoice.isEmpty() ? QChar() : criteria.dateChoice.front();
    if (choice == u'0' || choice == u'1') {
        return u"testingdate>='"_s + dateText(today.addDays(choice == u'0' ? -week : -month)) + u'\'';
    }
    return u"(testingdate>='"_s + dateText(criteria.from) + u"' and testingdate<='"_s + dateText(criteria.to) + u"')"_s;
}

QString listPiece(const QString& column, const QStringList& values) {
    return values.isEmpty() ? QString() : u' ' + column + u" in ('"_s + values.join(u"','"_s) + u"')"_s;
}

QString conditions(const QueryCriteria& criteria, const QString& logic, const QDate& today) {
    QString strWhere = datePiece(criteria, today) + logic;
    if (!criteria.name.isEmpty()) {
        // In place of the date, not beside it, which is meant.
        strWhere = u"Name like '%"_s + criteria.name + u"%' "_s + logic;
    }
    const std::pair<QString, QStringList> lists[] = {{u"sex"_s, criteria.sexes},
                                                     {u"Education"_s, criteria.educations},
                                                     {u"PostName"_s, criteria.positions},
                                                     {u"TypeName"_s, criteria.types}};
    for (const auto& [column, values] : lists) {
        if (!values.isEmpty()) {
            strWhere += listPiece(column, values) + u' ' + logic;
        }
    }
    strWhere += listPiece(u"TestingResult"_s, criteria.results);
    // Four characters, whichever the word: "or" and "and" go as told by the blanks around them, and a word that stands
    // directly behind a quote or a bracket stays.
    constexpr int cut = 4;
    const QString end = trimBlanks(strWhere.right(cut));
    if (end == "or"_L1 || end == "and"_L1) {
        strWhere.chop(cut);
    }
    return strWhere;
}

}  // namespace

QString BuildQuerySQL(const QueryCriteria& criteria, const QString& logic, const QDate& today) {
    return u"Select * From TestingResult WHERE ((TypeCode is null  and SolutionID>0)  or "
           "(len(TypeCode)=6 and SolutionID =0)) and "_s +
           conditions(criteria, logic, today) + u" ORDER BY testingNumber"_s;
}

}  // namespace talvora
