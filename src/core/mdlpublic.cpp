#include "core/mdlpublic.h"

#include "core/connection_file.h"
#include "platform/runtime_error.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace talvora {

using namespace Qt::StringLiterals;

Connection cnnPublic;
QString strCurrentUser;

bool ConnectServer(const QString& folder) {
    constexpr int statementSeconds = 10;
    try {
        ConnectionFile file;
        const QString path = QDir(folder).filePath(connectionFileName());
        if (QFileInfo::exists(path)) {
            file = readConnectionFile(path);
        }
        cnnPublic.CommandTimeout = statementSeconds;
        cnnPublic.ConnectionString = connectionString(file);
        cnnPublic.Open();
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

bool ConnectServer() {
    return ConnectServer(QCoreApplication::applicationDirPath());
}

}  // namespace talvora
