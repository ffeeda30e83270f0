#include "setup/care/key_ranges.h"

#include "core/data_routines.h"

#include <algorithm>

namespace talvora {

using namespace Qt::StringLiterals;

const std::vector<KeyRange>& keyRanges() {
    static const std::vector<KeyRange> ranges{
        {u"试题"_s, {u"ExaminationQuestion"_s, u"QuestionID"_s}},
        {u"试卷"_s,
         {u"Examination"_s, u"ExaminationID"_s},
         true,
         {{u"ExaminationQuestion"_s, u"ExaminationID"_s},
          {u"TestingResult"_s, u"ExaminationID"_s},
          {u"TestingResultDetail"_s, u"ExaminationID"_s}}},
        {u"测评记录"_s, {u"TestingResult"_s, u"TestingID"_s}, true, {{u"TestingResultDetail"_s, u"TestingID"_s}}},
        {u"测评"_s, {u"TestingResult"_s, u"TestingNumber"_s}, false},
        {u"素质模型"_s,
         {u"TestingSolution"_s, u"SolutionID"_s},
         true,
         {{u"TestingSolutionDetail"_s, u"SolutionID"_s}, {u"TestingResult"_s, u"SolutionID"_s}}},
        {u"用户"_s, {u"Users"_s, u"UserID"_s}, true, {{u"UserRole"_s, u"UserID"_s}}},
        {u"角色"_s, {u"Roles"_s, u"RoleID"_s}, true, {{u"UserRole"_s, u"RoleID"_s}, {u"RoleRight"_s, u"RoleID"_s}}},
        {u"查询"_s, {u"Query"_s, u"QueryID"_s}},
    };
    return ranges;
}

qint32 greatestIn(Connection& connection, const KeyColumn& place) {
    const auto rows = connection.Execute(u"select max(%1) from %2"_s.arg(place.column, place.table));
    return rows.first().isNull(0) ? 0 : rows.first().number32(0);
}

qint32 usedKeys(Connection& connection, const KeyRange& range) {
    const qint32 greatest = greatestIn(connection, range.home);
    if (!range.isGenerated) {
        return greatest;
    }
    const qint32 last = countOf(connection, u"select ident_current('%1')"_s.arg(range.home.table));
    // A table that never held a row says 1 as well.
    return last == 1 ? greatest : std::max(last, greatest);
}

qint32 heldKeys(Connection& connection, const KeyRange& range) {
    return countOf(connection,
                   u"select count(*) from (select distinct %1 from %2) a"_s.arg(range.home.column, range.home.table));
}

}  // namespace talvora
