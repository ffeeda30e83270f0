#include "setup/care/change.h"

#include "core/resume_next.h"
#include "platform/runtime_error.h"
#include "setup/tables.h"

namespace talvora {

using namespace Qt::StringLiterals;

void changeAsOne(Connection& connection, const std::function<void()>& work) {
    if (!isEmbedded(connection)) {
        // What has been read stays as it is until the end. A server that refuses the level reads snapshots; there the
        // session itself keeps the transactions of the workstations apart.
        ResumeNext passed;
        passed([&] { connection.Execute(u"set transaction isolation level serializable"_s); });
    }
    connection.BeginTrans();
    try {
        work();
        connection.CommitTrans();
    } catch (const RuntimeError&) {
        ResumeNext rollback;
        rollback([&] { connection.RollbackTrans(); });
        throw;
    }
}

void requireOwnColumns(Connection& connection, const QString& table) {
    for (const auto& known : schemaTables()) {
        if (known.table == table &&
            connection.Execute(u"select top 1 * from "_s + table).FieldCount() != known.columns.size()) {
            throw RuntimeError(
                errors::InvalidCall,
                u"表 %1 的列与本程序建立的不同，没有做任何改动！请先运行 talvora-setup check。"_s.arg(table));
        }
    }
}

}  // namespace talvora
