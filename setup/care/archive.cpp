#include "setup/care/archive.h"

#include "core/data_routines.h"
#include "platform/runtime_error.h"
#include "setup/care/table_copy.h"
#include "setup/install.h"
#include "setup/session.h"
#include "setup/tables.h"

#include <QDate>
#include <QDir>
#include <QFileInfo>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

const QString results = u"TestingResult"_s;
const QString answers = u"TestingResultDetail"_s;
const QString chosen = u"TestingID in (select TestingID from #ArchivedTests)"_s;

QString dateFault(const QString& date) {
    const auto day = QDate::fromString(date, u"yyyy-MM-dd"_s);
    if (!day.isValid() || day.toString(u"yyyy-MM-dd"_s) != date) {
        return u"日期［%1］不对，请写作 年-月-日，例如 2024-01-31！"_s.arg(date);
    }
    return day > QDate::currentDate() ? u"日期［%1］不能晚于今天！"_s.arg(date) : QString();
}

QString pathFault(const QString& path) {
    if (path.contains(u';')) {
        return u"文件名［%1］中不可有分号！"_s.arg(path);
    }
    if (QFileInfo::exists(path)) {
        return u"文件［%1］已经存在，请另给一个文件名！"_s.arg(path);
    }
    const auto folder = QFileInfo(path).absolutePath();
    return QFileInfo(folder).isDir() ? QString() : u"文件夹［%1］不存在！"_s.arg(QDir::toNativeSeparators(folder));
}

/// The pieces of the bank that go into the file: other tables whole, the tests and their answers in blocks of so many
/// tests, so that no bank is too big to be held.
std::vector<TableRows> pieces(Connection& source) {
    constexpr int block = 200;
    std::vector<TableRows> all;
    for (const auto& table : schemaTables()) {
        if (table.table != results && table.table != answers) {
            all.push_back({table, {}, {}});
            continue;
        }
        const auto tests = source.Execute(u"select TestingID from #ArchivedTests order by TestingID"_s);
        for (int first = 0; first < tests.RecordCount(); first += block) {
            const int last = std::min(first + block, tests.RecordCount()) - 1;
            const auto range =
                u"TestingID>=%1 and TestingID<=%2"_s.arg(tests.row(first).number32(0)).arg(tests.row(last).number32(0));
            all.push_back({table,
                           range + u" and TestingID in (select TestingID from #ArchivedTests where %1)"_s.arg(range),
                           range});
        }
    }
    return all;
}

class Told {
 public:
    Told(const Tidings& tidings, const QString& work, std::size_t total)
        : tidings_(tidings), work_(work), total_(total) {}
    void step() {
        constexpr std::size_t often = 20;
        if (tidings_ && (++done_ % often == 0 || done_ == total_)) {
            tidings_(u"%1 %2%……"_s.arg(work_).arg(done_ * 100 / total_));
        }
    }

 private:
    const Tidings& tidings_;
    QString work_;
    std::size_t total_;
    std::size_t done_ = 0;
};

void fill(Connection& source, Connection& target, const std::vector<TableRows>& parts, const Tidings& tidings) {
    Told told(tidings, u"正在写入归档文件"_s, parts.size());
    target.BeginTrans();
    installSchema(target);
    for (const auto& part : parts) {
        copyRows(source, target, part);
        told.step();
    }
    target.CommitTrans();
}

void compare(Connection& source, Connection& target, const std::vector<TableRows>& parts, const Tidings& tidings) {
    Told told(tidings, u"正在逐行核对"_s, parts.size());
    for (const auto& part : parts) {
        if (!hasSameRows(source, target, part)) {
            throw RuntimeError(errors::InvalidCall,
                               u"核对表 %1 时发现归档文件与数据库不同，没有删除任何内容！请在无人使用时重试。"_s.arg(
                                   part.table.table));
        }
        told.step();
    }
}

}  // namespace

Archive::Archive(const QString& before, const QString& path)
    : before_(before), path_(QFileInfo(path).absoluteFilePath()) {
    if (const auto fault = dateFault(before_); !fault.isEmpty()) {
        throw RuntimeError(errors::InvalidCall, fault);
    }
    if (const auto fault = pathFault(path_); !fault.isEmpty()) {
        throw RuntimeError(errors::FileAlreadyExists, fault);
    }
}

ArchiveSize Archive::choose(Connection& source) {
    source.Execute(
        u"select TestingID into #ArchivedTests from TestingResult where TestingDate<'%1' and "
        "TestingNumber is not null and TestingNumber not in "
        "(select TestingNumber from TestingResult where TestingNumber is not null and "
        "(TestingDate>='%1' or TestingDate is null))"_s.arg(before_));
    return {countOf(source, u"select count(*) from (select distinct TestingNumber from TestingResult where %1) a"_s.arg(
                                chosen)),
            countOf(source, u"select count(*) from #ArchivedTests"_s),
            countOf(source, u"select count(*) from TestingResultDetail where "_s + chosen)};
}

void Archive::run(Connection& source, const Tidings& tidings) {
    requireOwnColumns(source, results);
    requireOwnColumns(source, answers);
    const auto file = embeddedConnection(path_);
    bool isDeleted = false;
    try {
        createOwnFile(file);
        Connection target;
        target.ConnectionString = connectionString(file);
        target.CommandTimeout = longWorkSeconds;
        target.Open();
        const auto parts = pieces(source);
        fill(source, target, parts, tidings);
        changeAsOne(source, [&] {
            compare(source, target, parts, tidings);
            source.Execute(u"delete from TestingResultDetail where "_s + chosen);
            source.Execute(u"delete from TestingResult where "_s + chosen);
            source.Execute(u"drop table #ArchivedTests"_s);
            isDeleted = true;
        });
    } catch (const RuntimeError& error) {
        if (isDeleted) {
            throw RuntimeError(error.number(),
                               u"不能确定数据库是否已删除归档的测评，归档文件［%1］保留，请核对：%2"_s.arg(
                                   QDir::toNativeSeparators(path_), error.description()));
        }
        removeOwnFile(file);
        throw;
    }
}

}  // namespace talvora
