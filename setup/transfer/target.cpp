#include "setup/transfer/target.h"

#include "platform/runtime_error.h"
#include "setup/session.h"

#include <QDir>
#include <QFileInfo>

namespace talvora {

using namespace Qt::StringLiterals;

ConnectionFile readTarget(const QString& text, QString& fault) {
    const auto serverMark = "server:"_L1;
    const auto embeddedMark = "embedded:"_L1;
    if (text.contains(u';')) {
        fault = u"目标［%1］中不可有分号！"_s.arg(text);
        return {};
    }
    if (text.startsWith(serverMark)) {
        const auto parts = text.sliced(serverMark.size()).split(u'/');
        if (parts.size() == 3 && !parts.contains(QString())) {
            return {parts[0], parts[1], parts[2], {}};
        }
    } else if (text.startsWith(embeddedMark) && text.size() > embeddedMark.size()) {
        return embeddedConnection(text.sliced(embeddedMark.size()));
    } else if (text.endsWith(".db"_L1, Qt::CaseInsensitive)) {
        return embeddedConnection(text);
    }
    fault = u"目标［%1］应写作 server:服务器/数据库/登录名 或 embedded:文件！"_s.arg(text);
    return {};
}

void openTarget(Connection& session, const ConnectionFile& target, bool& made) {
    try {
        if (awaitsInstallation(target)) {
            const auto folder = QFileInfo(embeddedPath(target)).absolutePath();
            if (!QFileInfo(folder).isDir()) {
                throw RuntimeError(errors::InvalidCall,
                                   u"文件夹［%1］不存在。"_s.arg(QDir::toNativeSeparators(folder)));
            }
            createOwnFile(target);
            made = true;
        }
        session.ConnectionString = connectionString(target);
        session.CommandTimeout = longWorkSeconds;
        session.Open();
    } catch (const RuntimeError& error) {
        const auto advice =
            isEmbedded(target) ? u"请检查文件名和文件夹的权限。"_s : u"请检查服务器、端口、数据库、登录名和密码。"_s;
        throw RuntimeError(error.number(),
                           u"目标数据库连接不成功，没有做任何改动！%1\n%2"_s.arg(advice, error.description()));
    }
}

}  // namespace talvora
