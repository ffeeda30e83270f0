#include "setup/care/renumber.h"

#include "core/data_routines.h"
#include "core/resume_next.h"
#include "platform/runtime_error.h"
#include "setup/care/key_ranges.h"
#include "setup/tables.h"

#include <algorithm>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

/// Lets inserts give the keys of a table, while it lives: no rollback ends that.
class KeysGiven {
 public:
    KeysGiven(Connection& connection, const QString& table)
        : connection_(connection), set_(u"set identity_insert "_s + table + u' ') {
        connection_.Execute(set_ + u"on"_s);
    }
    KeysGiven(const KeysGiven&) = delete;
    KeysGiven& operator=(const KeysGiven&) = delete;
    ~KeysGiven() {
        if (isOpen_) {
            ResumeNext last;
            last([this] { end(); });
        }
    }
    void end() {
        connection_.Execute(set_ + u"off"_s);
        isOpen_ = false;
    }

 private:
    Connection& connection_;
    QString set_;
    bool isOpen_ = true;
};

/// One range's new numbering. #RenumberKeys holds the old and the new key of each.
class Renumbering {
 public:
    Renumbering(Connection& connection, const KeyRange& range) : connection_(connection), range_(range) {}

    /// How many keys changed.
    qint32 run() {
        listKeys();
        const qint32 moved = count(u"select count(*) from #RenumberKeys where NewKey<>OldKey"_s);
        if (moved > 0) {
            const auto before = tally();
            move();
            if (tally() != before) {
                throw RuntimeError(errors::InvalidCall,
                                   u"［%1］重新编号后行数不符，已全部撤消，没有做任何改动！"_s.arg(range_.caption));
            }
        }
        run(u"drop table #RenumberKeys"_s);
        return moved;
    }

 private:
    void run(const QString& statement) { connection_.Execute(statement); }
    qint32 count(const QString& statement) { return countOf(connection_, statement); }

    // The keys that the database generates for the first table are the new numbers.
    void listKeys() {
        const auto& [table, column] = range_.home;
        run(u"create table #RenumberOrder (NewKey int identity(1,1) not null primary key, OldKey int not null)"_s);
        run(u"insert into #RenumberOrder (OldKey) select distinct %1 from %2%3 order by %1"_s.arg(
            column, table, range_.isGenerated ? QString() : u" where %1>0"_s.arg(column)));
        for (const auto& mention : range_.mentions) {
            run(u"insert into #RenumberOrder (OldKey) select distinct %1 from %2 where %1>0 and "
                "%1 not in (select OldKey from #RenumberOrder) order by %1"_s.arg(mention.column, mention.table));
        }
        run(u"create table #RenumberKeys (OldKey int not null primary key, NewKey int not null)"_s);
        run(u"insert into #RenumberKeys (OldKey,NewKey) select OldKey,NewKey from #RenumberOrder"_s);
        run(u"drop table #RenumberOrder"_s);
    }

    void move() {
        if (range_.isGenerated) {
            moveRows();
        } else {
            rename(range_.home);
        }
        for (const auto& mention : range_.mentions) {
            rename(mention);
        }
    }

    // A generated key cannot be changed where it stands.
    void moveRows() {
        const auto& [table, key] = range_.home;
        const auto tables = schemaTables();
        QStringList columns = std::find_if(tables.begin(), tables.end(), [&](const TableColumns& known) {
                                  return known.table == range_.home.table;
                              })->columns;
        columns.removeOne(key);
        run(u"select * into #RenumberRows from "_s + table);
        run(u"delete from "_s + table);
        KeysGiven given(connection_, table);
        run(u"insert into %1 (%2,%3) select k.NewKey,r.%4 from #RenumberRows r,#RenumberKeys k "
            "where r.%2=k.OldKey order by k.NewKey"_s.arg(table, key, columns.join(u','), columns.join(u",r."_s)));
        given.end();
        run(u"drop table #RenumberRows"_s);
    }

    void rename(const KeyColumn& place) {
        run(u"update %1 set %2=k.NewKey from #RenumberKeys k where %1.%2=k.OldKey and k.OldKey<>k.NewKey"_s.arg(
            place.table, place.column));
    }

    // What stays the same: the rows, the different keys, and the rows elsewhere that find their key.
    std::vector<qint32> tally() {
        const auto& [table, key] = range_.home;
        std::vector<qint32> counts{count(u"select count(*) from "_s + table), heldKeys(connection_, range_)};
        for (const auto& mention : range_.mentions) {
            counts.push_back(count(
                u"select count(*) from %1 m,%2 t where m.%3=t.%4"_s.arg(mention.table, table, mention.column, key)));
        }
        return counts;
    }

    Connection& connection_;
    const KeyRange& range_;
};

// Behind the commit: a counter that is set back does not go up again when a transaction is rolled back, and would give
// keys that are there already.
void setCounterBack(Connection& connection, const KeyRange& range) {
    qint32 last = std::max(1, greatestIn(connection, range.home));
    for (const auto& mention : range.mentions) {
        last = std::max(last, greatestIn(connection, mention));
    }
    if (last < usedKeys(connection, range)) {
        connection.Execute(u"dbcc checkident (%1, reseed, %2)"_s.arg(range.home.table).arg(last));
    }
}

void setCountersBack(Connection& connection) {
    try {
        for (const auto& range : keyRanges()) {
            if (range.isGenerated) {
                setCounterBack(connection, range);
            }
        }
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.number(),
                           u"编号已改好，但下一个编号没有退回，请再次运行 renumber：%1"_s.arg(error.description()));
    }
}

}  // namespace

QStringList renumberKeys(Connection& connection, const Tidings& tidings) {
    std::vector<qint32> moved;
    for (const auto& range : keyRanges()) {
        requireOwnColumns(connection, range.home.table);
    }
    changeAsOne(connection, [&] {
        for (const auto& range : keyRanges()) {
            if (tidings) {
                tidings(u"正在为［%1］重新编号……"_s.arg(range.caption));
            }
            moved.push_back(Renumbering(connection, range).run());
        }
    });
    setCountersBack(connection);
    QStringList lines;
    for (std::size_t i = 0; i < moved.size(); ++i) {
        const auto& range = keyRanges()[i];
        lines.append(u"编号［%1］：改动 %2 个，已用 %3 / %4"_s.arg(range.caption)
                         .arg(moved[i])
                         .arg(usedKeys(connection, range))
                         .arg(greatestKey));
    }
    return lines;
}

}  // namespace talvora
