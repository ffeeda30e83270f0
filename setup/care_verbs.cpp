#include "setup/care_verbs.h"

#include "core/mdlpublic.h"
#include "setup/agreement.h"
#include "setup/care/archive.h"
#include "setup/care/renumber.h"
#include "setup/care/rights.h"
#include "setup/session.h"
#include "setup/terminal.h"

#include <QDir>

namespace talvora {

using namespace Qt::StringLiterals;

ExitCode renumberVerb(const Arguments& arguments) {
    openSession(savedConnection(), longWorkSeconds);
    if (!isAgreed(arguments,
                  u"将为试题、试卷、测评等重新编号。请先备份数据库，并让所有工作站退出 Talvora：\n"
                  "仍开着的窗口记得旧的编号，会改错内容。"_s)) {
        return ExitCode::Failed;
    }
    say(renumberKeys(cnnPublic, say).join(u'\n'));
    say(u"重新编号完成。"_s);
    return ExitCode::Done;
}

ExitCode archiveVerb(const Arguments& arguments) {
    Archive archive(arguments.option(u"before"_s), arguments.option(u"to"_s));
    openSession(savedConnection(), longWorkSeconds);
    const auto size = archive.choose(cnnPublic);
    if (size.tests == 0) {
        say(u"没有 %1 以前的测评，不必归档。"_s.arg(arguments.option(u"before"_s)));
        return ExitCode::Done;
    }
    const auto what = u"%1 以前的 %2 次测评（%3 行记录、%4 条答题记录）"_s.arg(arguments.option(u"before"_s))
                          .arg(size.tests)
                          .arg(size.rows)
                          .arg(size.answers);
    const auto file = QDir::toNativeSeparators(archive.path());
    if (!isAgreed(arguments,
                  u"将把%1移到［%2］，\n并从数据库中删除。请先备份数据库，并在无人测评时进行。"_s.arg(what, file))) {
        return ExitCode::Failed;
    }
    archive.run(cnnPublic, say);
    say(u"已把%1移到［%2］，逐行核对无误后从数据库中删除。"_s.arg(what, file));
    return ExitCode::Done;
}

ExitCode grantVerb(const Arguments& arguments) {
    const auto connection = savedConnection();
    const auto login = arguments.option(u"login"_s);
    openSession(connection);
    grantWorkstationLogin(cnnPublic, login, readPassword(u"请设置登录［%1］的密码："_s.arg(login)));
    say(u"登录［%1］已建立，只能读写数据。请在各工作站用它进行［连接］：\n"
        "talvora-setup connect --server %2 --database %3 --login %1"_s.arg(login, connection.server,
                                                                           connection.database));
    return ExitCode::Done;
}

}  // namespace talvora
