#include "setup/transfer_verbs.h"

#include "core/mdlpublic.h"
#include "platform/runtime_error.h"
#include "setup/agreement.h"
#include "setup/session.h"
#include "setup/terminal.h"
#include "setup/transfer/backup.h"
#include "setup/transfer/bank_copy.h"
#include "setup/transfer/progress_line.h"
#include "setup/transfer/target.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

QString shown(const QString& path) {
    return QDir::toNativeSeparators(path);
}

QString shown(const ConnectionFile& target) {
    return isEmbedded(target)
               ? u"--embedded "_s + shown(embeddedPath(target))
               : u"--server %1 --database %2 --login %3"_s.arg(target.server, target.database, target.login);
}

qint64 copyInto(Connection& session) {
    ProgressLine line;
    try {
        return copyBank(cnnPublic, session,
                        [&](const QString& step, qint64 done, qint64 total) { line.show(step, done, total); });
    } catch (const DatabaseError& error) {
        throw RuntimeError(error.number(), u"复制没有完成，已撤销，请排除下面的问题后重试：\n"_s + error.description());
    }
}

}  // namespace

ExitCode copyVerb(const Arguments& arguments) {
    QString fault;
    auto target = readTarget(arguments.option(u"to"_s), fault);
    if (!fault.isEmpty()) {
        return wrongUse(fault);
    }
    openSession(savedConnection(), longWorkSeconds);
    if (!isEmbedded(target)) {
        target.password = readPassword(u"请输入目标数据库的登录密码："_s);
    }
    Connection session;
    bool made = false;
    try {
        openTarget(session, target, made);
        const auto rows = copyInto(session);
        say(u"复制完成，%1 行已逐行核对无误。要使用新数据库，请在各工作站运行：\n  talvora-setup connect %2"_s.arg(
            QLocale(QLocale::Chinese).toString(rows), shown(target)));
    } catch (const RuntimeError&) {
        session.Abandon();
        if (made) {
            removeOwnFile(target);
        }
        throw;
    }
    return ExitCode::Done;
}

ExitCode backupVerb(const Arguments& arguments) {
    const auto bank = savedConnection();
    const QFileInfo file(arguments.words.first());
    const auto name = shown(file.absoluteFilePath());
    if (file.exists() && !isAgreed(arguments, u"文件［%1］已经存在，将被新的备份替换。"_s.arg(name))) {
        return ExitCode::Failed;
    }
    backUpBank(bank, file.filePath());
    say(u"备份完成：［%1］，%2。"_s.arg(
        name, QLocale(QLocale::Chinese).formattedDataSize(QFileInfo(file.filePath()).size())));
    return ExitCode::Done;
}

ExitCode restoreVerb(const Arguments& arguments) {
    const auto bank = savedConnection();
    const QFileInfo file(arguments.words.first());
    const auto moment = file.lastModified().toString(u"yyyy-MM-dd HH:mm:ss"_s);
    const bool isReplacing = !awaitsInstallation(bank);
    const auto question = u"将用备份［%1］（%2）替换现用数据库［%3］，备份以后的内容将不再出现。"_s.arg(
        shown(file.absoluteFilePath()), moment, shown(embeddedPath(bank)));
    if (!restoreBank(bank, file.filePath(), [&] { return isAgreed(arguments, question); })) {
        return ExitCode::Failed;
    }
    say(u"恢复完成。"_s +
        (isReplacing ? u"原数据库保留为［%1］，不再需要时请删除。"_s.arg(shown(replacedBank(bank))) : QString()));
    return ExitCode::Done;
}

}  // namespace talvora
