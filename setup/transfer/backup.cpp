#include "setup/transfer/backup.h"

#include "platform/database/connection.h"
#include "platform/database/embedded/file_backup.h"
#include "platform/database/server_errors.h"
#include "platform/runtime_error.h"
#include "setup/session.h"
#include "setup/tables.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <filesystem>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

QString shown(const QString& path) {
    return QDir::toNativeSeparators(path);
}

std::filesystem::path native(const QString& path) {
    return path.toStdU16String();
}

/// A file on its way to its name. What has not got there at the end is removed, as is what a killed process has left.
class Draft {
 public:
    explicit Draft(const QString& path) : connection_(embeddedConnection(path)) { removeOwnFile(connection_); }
    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;
    ~Draft() { removeOwnFile(connection_); }

    const QString& path() const { return connection_.database; }
    const ConnectionFile& connection() const { return connection_; }

    /// In one step, whatever bears that name.
    void rename(const QString& name) const {
        std::error_code failure;
        std::filesystem::rename(native(path()), native(name), failure);
        if (failure) {
            throw RuntimeError(errors::PathAccess, u"不能写文件［%1］，请检查文件夹的权限！"_s.arg(shown(name)));
        }
    }

 private:
    ConnectionFile connection_;
};

bool hasOurTables(const ConnectionFile& file) {
    Connection session;
    session.ConnectionString = connectionString(file);
    session.Open();
    const auto tables = schemaTables();
    return std::all_of(tables.begin(), tables.end(), [&](const TableColumns& table) {
        return hasTable(session, table.table) && missingColumns(session, table).isEmpty();
    });
}

/// A copy of the bank in `from` as one sound file.
void copySound(const QString& from, const Draft& draft) {
    const auto noBank = u"文件［%1］不是完好的 Talvora 数据库，没有做任何改动！"_s.arg(shown(from));
    try {
        copyEmbedded(from, draft.path());
        if (!hasOurTables(draft.connection()) || !isSoundEmbedded(draft.path())) {
            throw RuntimeError(errors::InvalidCall, noBank);
        }
        detachEmbedded(draft.path());
    } catch (const DatabaseError& error) {
        const bool isBad =
            error.number() == server_error::NoDatabaseFile || error.number() == server_error::DamagedFile;
        throw RuntimeError(error.number(), isBad ? noBank : u"没有做任何改动："_s + error.description());
    }
}

void requireEmbedded(const ConnectionFile& bank) {
    if (!isEmbedded(bank)) {
        throw RuntimeError(errors::InvalidCall,
                           u"现用数据库在服务器上，请用服务器自己的备份和恢复工具（见 deployment.md）！"_s);
    }
}

void requireOther(const ConnectionFile& bank, const QString& file) {
    if (QFileInfo(embeddedPath(bank)) == QFileInfo(file)) {
        throw RuntimeError(errors::InvalidCall, u"文件［%1］就是现用数据库，请另给一个文件名！"_s.arg(shown(file)));
    }
}

/// Leaves the bank, as it is, its second name. Where the disk knows no second names it is a copy.
void keepReplaced(const QString& bank, const QString& second) {
    std::error_code failure;
    std::filesystem::remove(native(second), failure);
    std::filesystem::create_hard_link(native(bank), native(second), failure);
    if (failure && !QFile::copy(bank, second)) {
        throw RuntimeError(
            errors::PathAccess,
            u"不能把现用数据库保留为［%1］，没有做任何改动！请检查磁盘空间和文件夹的权限。"_s.arg(shown(second)));
    }
}

/// Throws while another program has the bank open. A bank that is beyond reading cannot tell.
void requireUnused(const QString& bank) {
    bool isOurs = true;
    try {
        isOurs = detachEmbedded(bank);
    } catch (const DatabaseError& error) {
        if (error.number() != server_error::NoDatabaseFile && error.number() != server_error::DamagedFile) {
            throw;
        }
    }
    if (!isOurs) {
        throw RuntimeError(errors::PathAccess,
                           u"另有程序正在使用现用数据库，没有做任何改动！请关闭本机上的 Talvora 后重试。"_s);
    }
}

}  // namespace

QString replacedBank(const ConnectionFile& bank) {
    return embeddedPath(bank) + u".old"_s;
}

void backUpBank(const ConnectionFile& bank, const QString& file) {
    requireEmbedded(bank);
    requireOther(bank, file);
    const auto path = QFileInfo(file).absoluteFilePath();
    if (path.contains(u';')) {
        throw RuntimeError(errors::InvalidCall, u"文件名［%1］中不可有分号！"_s.arg(shown(path)));
    }
    const Draft draft(path + u".part"_s);
    copySound(embeddedPath(bank), draft);
    // Those of an earlier bank of that name would be taken for its own.
    for (const auto* companion : {"-wal", "-shm"}) {
        QFile::remove(path + QLatin1StringView(companion));
    }
    draft.rename(path);
}

bool restoreBank(const ConnectionFile& bank, const QString& file, const std::function<bool()>& isWanted) {
    requireEmbedded(bank);
    requireOther(bank, file);
    const auto path = embeddedPath(bank);
    const Draft draft(path + u".restoring"_s);
    copySound(QFileInfo(file).absoluteFilePath(), draft);
    if (!isWanted()) {
        return false;
    }
    if (QFileInfo::exists(path)) {
        requireUnused(path);
        keepReplaced(path, replacedBank(bank));
        QFile::setPermissions(draft.path(), QFile::permissions(path));
    }
    // What a bank that is beyond reading has left would be taken for the new one's own.
    for (const auto* companion : {"-wal", "-shm"}) {
        QFile::remove(path + QLatin1StringView(companion));
    }
    draft.rename(path);
    return true;
}

}  // namespace talvora
