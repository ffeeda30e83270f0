#include "setup/transfer/bank_copy.h"

#include "core/data_routines.h"
#include "core/resume_next.h"
#include "platform/runtime_error.h"
#include "setup/care/table_copy.h"
#include "setup/install.h"
#include "setup/tables.h"

#include <limits>
#include <vector>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

QString countRows(const TableColumns& table) {
    return u"select count(*) from "_s + table.table;
}

/// Throws unless the source has our tables with our columns, and no others in them: those would be lost.
void requireWholeSource(Connection& source) {
    for (const auto& table : schemaTables()) {
        if (!hasTable(source, table.table) || !missingColumns(source, table).isEmpty()) {
            throw RuntimeError(
                errors::InvalidCall,
                u"现用数据库的表 %1 不存在或缺少列，不能复制！请先运行 talvora-setup check。"_s.arg(table.table));
        }
        if (source.Execute(u"select top 1 * from "_s + table.table).FieldCount() != table.columns.size()) {
            throw RuntimeError(
                errors::InvalidCall,
                u"现用数据库的表 %1 有本程序没有的列，复制会丢失其中的内容，没有做任何改动！"_s.arg(table.table));
        }
    }
}

/// The batches of the schema that make tables, or those that make indexes.
void runSchema(Connection& target, const QString& beginning) {
    for (const auto& batch : scriptBatches(setupText(u"schema.sql"_s))) {
        if (batch.startsWith(beginning) || batch.contains(u'\n' + beginning)) {
            target.Execute(batch);
        }
    }
}

/// So many rows as are at hand at once.
struct Piece {
    TableRows rows;
    qint64 count = 0;
};

class BankCopy {
 public:
    BankCopy(Connection& source, Connection& target, const CopyProgress& progress)
        : source_(source), target_(target), progress_(progress) {
        for (const auto& table : schemaTables()) {
            total_ += countOf(source_, countRows(table));
            table.numberKey.isEmpty() ? pieces_.push_back({{table, {}, {}}}) : divide(table);
        }
    }

    qint64 run() {
        runSchema(target_, u"create table "_s);
        forEachPiece(u"正在复制"_s, [this](Piece& piece) { piece.count = copyRows(source_, target_, piece.rows); });
        // Quicker than to keep them up row by row.
        if (progress_) {
            progress_(u"正在建立索引"_s, 0, 0);
        }
        runSchema(target_, u"create index "_s);
        forEachPiece(u"正在核对"_s, [this](const Piece& piece) {
            requireSame(hasSameRows(source_, target_, piece.rows), piece.rows.table);
        });
        for (const auto& table : schemaTables()) {
            requireSame(countOf(source_, countRows(table)) == countOf(target_, countRows(table)), table);
        }
        return total_;
    }

 private:
    void divide(const TableColumns& table) {
        constexpr qint64 keysOfPiece = 1000;
        qint64 first = std::numeric_limits<qint32>::min();
        while (true) {
            const auto next = source_.Execute(
                u"select top 1 %1 from %2 where %1>=%3 order by %1"_s.arg(table.numberKey, table.table).arg(first));
            if (next.RecordCount() == 0) {
                return;
            }
            const qint64 least = next.first().number32(0);
            first = least + keysOfPiece;
            const auto range = u"%1>=%2 and %1<%3"_s.arg(table.numberKey).arg(least).arg(first);
            pieces_.push_back({{table, range, range}});
        }
    }

    template <class Work>
    void forEachPiece(const QString& step, Work&& work) {
        qint64 done = 0;
        for (auto& piece : pieces_) {
            work(piece);
            done += piece.count;
            if (progress_) {
                progress_(step, done, total_);
            }
        }
    }

    static void requireSame(bool isSame, const TableColumns& table) {
        if (!isSame) {
            throw RuntimeError(
                errors::InvalidCall,
                u"核对表 %1 时发现两个数据库的内容不同，已撤销复制！请在无人使用现用数据库时重试。"_s.arg(table.table));
        }
    }

    Connection& source_;
    Connection& target_;
    const CopyProgress& progress_;
    std::vector<Piece> pieces_;
    qint64 total_ = 0;
};

}  // namespace

qint64 copyBank(Connection& source, Connection& target, const CopyProgress& progress) {
    requireWholeSource(source);
    if (!isEmptyDatabase(target)) {
        throw RuntimeError(errors::FileAlreadyExists, u"目标数据库不是空的，没有做任何改动！请另给一个空数据库。"_s);
    }
    BankCopy copy(source, target, progress);
    target.BeginTrans();
    try {
        const auto rows = copy.run();
        target.CommitTrans();
        return rows;
    } catch (const RuntimeError&) {
        ResumeNext rollback;
        rollback([&] { target.RollbackTrans(); });
        throw;
    }
}

}  // namespace talvora
