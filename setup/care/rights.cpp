#include "setup/care/rights.h"

#include "core/data_routines.h"
#include "platform/runtime_error.h"
#include "setup/care/change.h"
#include "setup/install.h"
#include "setup/tables.h"

#include <QRegularExpression>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void refuse(const QString& reason) {
    throw RuntimeError(errors::InvalidCall, reason);
}

bool isKnown(Connection& connection, const QString& view, const QString& name) {
    return countOf(connection, u"select count(*) from sys.%1 where name=N'%2'"_s.arg(view, name)) > 0;
}

void requireFreeName(Connection& connection, const QString& login) {
    if (isKnown(connection, u"server_principals"_s, login) || isKnown(connection, u"database_principals"_s, login)) {
        refuse(u"服务器上已有名为［%1］的登录、用户或角色，没有做任何改动！请换一个登录名。"_s.arg(login));
    }
}

}  // namespace

QString loginFault(const QString& login, const QString& password) {
    constexpr qsizetype longestPassword = 128;
    static const QRegularExpression plainName(u"^[\\p{L}_][\\p{L}\\p{N}_.-]{0,62}$"_s);
    if (!plainName.match(login).hasMatch()) {
        return u"登录名［%1］不可用：以字母或汉字开头，由字母、汉字、数字、下划线、点和减号组成，最多63个字符！"_s.arg(
            login);
    }
    if (password.isEmpty()) {
        return u"请从标准输入提供登录［%1］的密码！"_s.arg(login);
    }
    return password.size() > longestPassword ? u"密码最多%1个字符！"_s.arg(longestPassword) : QString();
}

void grantWorkstationLogin(Connection& connection, const QString& login, const QString& password) {
    if (isEmbedded(connection)) {
        refuse(u"内置数据库文件没有登录，不能授权！谁能使用它，由文件的读写权限决定。"_s);
    }
    if (const auto fault = loginFault(login, password); !fault.isEmpty()) {
        refuse(fault);
    }
    if (presentTables(connection).size() != static_cast<qsizetype>(schemaTables().size())) {
        refuse(u"数据库中还没有全部的表，请先运行 talvora-setup install！"_s);
    }
    requireFreeName(connection, login);
    auto script = setupText(u"roles.sql"_s);
    script.replace("$(Login)"_L1, login);
    script.replace("$(Password)"_L1, QString(password).replace("'"_L1, "''"_L1));
    try {
        changeAsOne(connection, [&] { runScript(connection, script); });
    } catch (const DatabaseError& error) {
        throw RuntimeError(
            error.number(),
            u"不能建立登录［%1］，没有做任何改动！建立登录须用服务器的管理登录连接，密码须符合服务器的要求。\n%2"_s.arg(
                login, error.description()));
    }
}

}  // namespace talvora
