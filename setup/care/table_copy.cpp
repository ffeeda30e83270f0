#include "setup/care/table_copy.h"

#include <algorithm>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

// Each row as the list of values that an insert takes.
QStringList values(Connection& bank, const TableColumns& table, const QString& condition) {
    const auto rows = bank.Execute(u"select %1 from %2"_s.arg(table.columns.join(u','), table.table) +
                                   (condition.isEmpty() ? QString() : u" where "_s + condition));
    QStringList lists;
    lists.reserve(rows.RecordCount());
    for (const auto row : rows) {
        QString list(u'(');
        for (int column = 0; column < rows.FieldCount(); ++column) {
            list += (column == 0 ? QString() : u","_s) + row.literal(column);
        }
        lists.append(list + u')');
    }
    return lists;
}

// A round trip is dear and the embedded engine has none: it knows statements again by their shape, which many rows
// together seldom share.
qsizetype rowsOfInsert(const Connection& target) {
    constexpr qsizetype overTheNetwork = 200;
    return isEmbedded(target) ? 1 : overTheNetwork;
}

}  // namespace

qint64 copyRows(Connection& source, Connection& target, const TableRows& rows) {
    const auto& table = rows.table;
    const auto lists = values(source, table, rows.sourceCondition);
    const auto setKeys = u"set identity_insert "_s + table.table + u' ';
    if (!table.identity.isEmpty()) {
        target.Execute(setKeys + u"on"_s);
    }
    const auto head = u"insert into %1 (%2) values "_s.arg(table.table, table.columns.join(u','));
    const auto together = rowsOfInsert(target);
    for (qsizetype first = 0; first < lists.size(); first += together) {
        target.Execute(head + lists.mid(first, together).join(u','));
    }
    if (!table.identity.isEmpty()) {
        target.Execute(setKeys + u"off"_s);
    }
    return lists.size();
}

bool hasSameRows(Connection& source, Connection& target, const TableRows& rows) {
    auto first = values(source, rows.table, rows.sourceCondition);
    auto second = values(target, rows.table, rows.targetCondition);
    std::sort(first.begin(), first.end());
    std::sort(second.begin(), second.end());
    return first == second;
}

}  // namespace talvora
