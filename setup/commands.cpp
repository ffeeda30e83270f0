#include "setup/commands.h"

#include "core/mdlpublic.h"
#include "platform/runtime_error.h"
#include "setup/arguments.h"
#include "setup/care_verbs.h"
#include "setup/check.h"
#include "setup/import/import.h"
#include "setup/sample/sample.h"
#include "setup/session.h"
#include "setup/terminal.h"
#include "setup/transfer_verbs.h"

#include <QDir>

#include <algorithm>
#include <vector>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

// The words and options that a verb does not take.
QString misfit(const Arguments& arguments, qsizetype words) {
    if (arguments.words.size() > words) {
        return u"多余的参数［%1］！"_s.arg(arguments.words[words]);
    }
    return arguments.words.size() < words ? u"缺少文件名！"_s : QString();
}

QString connectMisfit(const Arguments& arguments) {
    if (arguments.options.contains(u"embedded"_s)) {
        return arguments.options.size() > 1                ? u"参数［--embedded］不能与其它参数同用！"_s
               : arguments.option(u"embedded"_s).isEmpty() ? u"参数［--embedded］缺少内容！"_s
                                                           : QString();
    }
    for (const auto& name : {u"server"_s, u"database"_s, u"login"_s}) {
        if (arguments.option(name).isEmpty()) {
            return u"缺少参数［--%1］！"_s.arg(name);
        }
    }
    return {};
}

ExitCode connectVerb(const Arguments& arguments) {
    if (const auto fault = connectMisfit(arguments); !fault.isEmpty()) {
        return wrongUse(fault);
    }
    auto connection = embeddedConnection(arguments.option(u"embedded"_s));
    if (!arguments.options.contains(u"embedded"_s)) {
        connection = {arguments.option(u"server"_s), arguments.option(u"database"_s), arguments.option(u"login"_s),
                      readPassword(u"请输入数据库登录密码："_s)};
    }
    writeConnectionFile(connectionFilePath(), connection);
    say(u"连接信息已保存到［%1］。"_s.arg(QDir::toNativeSeparators(connectionFilePath())));
    if (awaitsInstallation(connection)) {
        say(u"数据库文件尚不存在，请接着运行 talvora-setup install。"_s);
        return ExitCode::Done;
    }
    try {
        testConnection(connection);
    } catch (const RuntimeError& error) {
        complain(u"连接不成功：%1"_s.arg(error.description()));
        return ExitCode::Failed;
    }
    say(u"连接成功。"_s);
    return ExitCode::Done;
}

ExitCode installVerb(const Arguments&) {
    const auto connection = savedConnection();
    installDatabase(connection, readPassword(u"请设置系统用户［admin］的密码："_s));
    say(u"安装完成，请用系统用户［admin］登录。"_s);
    return ExitCode::Done;
}

ExitCode sampleVerb(const Arguments&) {
    openSession(savedConnection());
    installSample();
    say(u"示例已装入。"_s);
    return ExitCode::Done;
}

ExitCode importVerb(const Arguments& arguments) {
    openSession(savedConnection());
    const auto outcome = importFile(arguments.words.first());
    const bool isDone = outcome.faults.empty();
    (isDone ? say : complain)(outcomeText(outcome, arguments.words.first()));
    return isDone ? ExitCode::Done : ExitCode::Failed;
}

ExitCode checkVerb(const Arguments&) {
    openSession(savedConnection());
    const auto items = checkDatabase(cnnPublic);
    say(checkText(items));
    return isComplete(items) ? ExitCode::Done : ExitCode::Failed;
}

ExitCode helpVerb(const Arguments&) {
    say(u"Talvora 安装工具\n"
        "\n"
        "用法：\n"
        "  talvora-setup                      打开安装窗口\n"
        "  talvora-setup connect --server 服务器 --database 数据库 --login 登录名\n"
        "                                     连接到SQL SERVER：保存并测试连接；密码从标准输入读取一行\n"
        "  talvora-setup connect --embedded 文件\n"
        "                                     改用本机的内置数据库文件，相对路径从程序文件夹算起\n"
        "  talvora-setup install              在空数据库中建表并写入基础数据；\n"
        "                                     系统用户［admin］的密码从标准输入读取一行\n"
        "  talvora-setup sample               装入示例题库、模型、职位、用户和测评记录\n"
        "  talvora-setup import 文件.csv      导入试卷\n"
        "  talvora-setup check                检查数据库是否完整\n"
        "  talvora-setup renumber [--yes]     为试题、试卷、测评等重新编号，从 1 开始\n"
        "  talvora-setup archive --before 年-月-日 --to 文件 [--yes]\n"
        "                                     把该日以前的测评移到另一个内置数据库文件\n"
        "  talvora-setup grant --login 登录名 在服务器上建立工作站使用的登录，只能读写数据；\n"
        "                                     密码从标准输入读取一行\n"
        "  talvora-setup copy --to 目标       把整个数据库复制到一个空数据库并逐行核对；目标写作\n"
        "                                     server:服务器/数据库/登录名（密码从标准输入读取一行）\n"
        "                                     或 embedded:文件（相对路径从程序文件夹算起）\n"
        "  talvora-setup backup 文件 [--yes]  备份内置数据库，程序可以照常使用\n"
        "  talvora-setup restore 文件 [--yes] 用备份替换内置数据库；替换前会询问，--yes 表示不再询问\n"
        "  talvora-setup --help               显示本说明\n"
        "\n"
        "服务器写作 主机、主机,端口 或 主机\\实例。密码不能写在命令行上；\n"
        "在终端上输入的密码会显示出来，不愿显示时请用安装窗口。\n"
        "退出代码：0 成功，1 未完成或检查发现问题，2 命令行有误。"_s);
    return ExitCode::Done;
}

struct Verb {
    QString name;
    QStringList options;
    qsizetype words;
    ExitCode (*run)(const Arguments&);
    QStringList needed{};  ///< the options that must be given
};

const std::vector<Verb>& verbs() {
    static const std::vector<Verb> all{
        {u"connect"_s, {u"server"_s, u"database"_s, u"login"_s, u"embedded"_s}, 0, connectVerb},
        {u"install"_s, {}, 0, installVerb},
        {u"sample"_s, {}, 0, sampleVerb},
        {u"import"_s, {}, 1, importVerb},
        {u"check"_s, {}, 0, checkVerb},
        {u"renumber"_s, {u"yes"_s}, 0, renumberVerb},
        {u"archive"_s, {u"before"_s, u"to"_s, u"yes"_s}, 0, archiveVerb, {u"before"_s, u"to"_s}},
        {u"grant"_s, {u"login"_s}, 0, grantVerb, {u"login"_s}},
        {u"copy"_s, {u"to"_s}, 0, copyVerb, {u"to"_s}},
        {u"backup"_s, {u"yes"_s}, 1, backupVerb},
        {u"restore"_s, {u"yes"_s}, 1, restoreVerb},
        {u"--help"_s, {}, 0, helpVerb},
        {u"-h"_s, {}, 0, helpVerb},
        {u"help"_s, {}, 0, helpVerb},
    };
    return all;
}

}  // namespace

ExitCode wrongUse(const QString& fault) {
    complain(fault);
    complain(u"用法见 talvora-setup --help"_s);
    return ExitCode::Usage;
}

ExitCode runCommand(const QStringList& arguments) {
    const auto name = arguments.value(0);
    const auto verb =
        std::find_if(verbs().begin(), verbs().end(), [&](const Verb& candidate) { return candidate.name == name; });
    if (verb == verbs().end()) {
        return wrongUse(u"不认识的命令［%1］！"_s.arg(name));
    }
    QString fault;
    const auto given = Arguments::parse(arguments.sliced(1), verb->options, fault);
    if (fault.isEmpty()) {
        fault = misfit(given, verb->words);
    }
    for (const auto& option : verb->needed) {
        if (fault.isEmpty() && given.option(option).isEmpty()) {
            fault = u"缺少参数［--%1］！"_s.arg(option);
        }
    }
    if (!fault.isEmpty()) {
        return wrongUse(fault);
    }
    try {
        const auto code = verb->run(given);
        cnnPublic.Close();
        return code;
    } catch (const RuntimeError& error) {
        cnnPublic.Abandon();
        complain(error.description());
        return ExitCode::Failed;
    }
}

}  // namespace talvora
