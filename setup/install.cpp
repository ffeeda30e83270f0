#include "setup/install.h"

#include "core/resume_next.h"
#include "platform/runtime_error.h"
#include "setup/tables.h"

#include <QFile>

// Outside the namespace, as the macro demands: the resources of a static library are otherwise left out by the linker.
static void takeResources() {
    Q_INIT_RESOURCE(setup);
}

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

// The login window takes no more.
constexpr qsizetype longestPassword = 20;

bool isBlankOrComment(const QString& line) {
    const auto content = line.trimmed();
    return content.isEmpty() || content.startsWith("--"_L1);
}

}  // namespace

QString setupText(const QString& name) {
    takeResources();
    QFile file(u":/setup/"_s + name);
    if (!file.open(QIODevice::ReadOnly)) {
        throw RuntimeError(errors::FileNotFound, u"安装程序缺少文件［"_s + name + u"］！"_s);
    }
    return QString::fromUtf8(file.readAll());
}

QStringList scriptBatches(const QString& script) {
    QStringList batches;
    QStringList lines;
    bool hasStatement = false;
    const auto finish = [&] {
        if (hasStatement) {
            batches.append(lines.join(u'\n'));
        }
        lines.clear();
        hasStatement = false;
    };
    for (const auto& line : script.split(u'\n')) {
        if (line.trimmed().compare("GO"_L1, Qt::CaseInsensitive) == 0) {
            finish();
            continue;
        }
        lines.append(line);
        hasStatement = hasStatement || !isBlankOrComment(line);
    }
    finish();
    return batches;
}

void runScript(Connection& connection, const QString& script, const Progress& progress) {
    const auto batches = scriptBatches(script);
    const int total = static_cast<int>(batches.size());
    for (int done = 0; done < total; ++done) {
        connection.Execute(batches[done]);
        if (progress) {
            progress(done + 1, total);
        }
    }
}

void installSchema(Connection& connection, const Progress& progress) {
    runScript(connection, setupText(u"schema.sql"_s), progress);
}

void installCatalogue(Connection& connection, const QString& adminPassword) {
    if (const auto fault = adminPasswordFault(adminPassword); !fault.isEmpty()) {
        throw RuntimeError(errors::InvalidCall, fault);
    }
    runScript(connection, setupText(u"catalogue.sql"_s));
    connection.Execute(u"update Users set Password='"_s + adminPassword + u"',Locked=0 where UserName='admin'"_s);
}

void install(Connection& connection, const QString& adminPassword, const Progress& progress) {
    if (!isEmptyDatabase(connection)) {
        throw RuntimeError(errors::FileAlreadyExists,
                           u"数据库不是空的，不能安装！请新建一个空数据库，或用［检查］查看其内容。"_s);
    }
    connection.BeginTrans();
    try {
        installSchema(connection, progress);
        installCatalogue(connection, adminPassword);
        connection.CommitTrans();
    } catch (const RuntimeError&) {
        ResumeNext rollback;
        rollback([&] { connection.RollbackTrans(); });
        throw;
    }
}

QString adminPasswordFault(const QString& password) {
    if (password.isEmpty()) {
        return u"请先输入系统用户［admin］的密码！"_s;
    }
    if (password.size() > longestPassword) {
        return u"系统用户［admin］的密码最多%1个字符！"_s.arg(longestPassword);
    }
    if (password.contains(u'\'')) {
        return u"密码中不可输入字符［'］！"_s;
    }
    return {};
}

}  // namespace talvora
