#include "setup/session.h"

#include "core/mdlpublic.h"
#include "platform/database/connection_string.h"
#include "platform/database/embedded/embedded_driver.h"
#include "platform/runtime_error.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int testSeconds = 10;

void open(Connection& session, const ConnectionFile& connection, int seconds) {
    session.ConnectionString = connectionString(connection);
    session.CommandTimeout = seconds;
    session.Open();
}

}  // namespace

QString connectionFilePath() {
    return QDir(QCoreApplication::applicationDirPath()).filePath(connectionFileName());
}

ConnectionFile savedConnection() {
    if (!QFileInfo::exists(connectionFilePath())) {
        throw RuntimeError(errors::FileNotFound, u"尚未配置数据库连接，请先进行［连接到SQL SERVER］！"_s);
    }
    try {
        return readConnectionFile(connectionFilePath());
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.number(), u"连接文件［%1］已损坏或不能读取，请重新进行［连接到SQL SERVER］！"_s.arg(
                                               QDir::toNativeSeparators(connectionFilePath())));
    }
}

ConnectionFile embeddedConnection(const QString& file) {
    return {u"embedded"_s, file, {}, {}};
}

QString embeddedPath(const ConnectionFile& connection) {
    return QDir(QCoreApplication::applicationDirPath()).absoluteFilePath(connection.database);
}

bool isEmbedded(const ConnectionFile& connection) {
    return ConnectionParts::parse(connectionString(connection)).isEmbedded();
}

bool awaitsInstallation(const ConnectionFile& connection) {
    return isEmbedded(connection) && !QFileInfo::exists(embeddedPath(connection));
}

void testConnection(const ConnectionFile& connection) {
    Connection session;
    open(session, connection, testSeconds);
}

void openSession(const ConnectionFile& connection, int seconds) {
    open(cnnPublic, connection, seconds);
}

void createOwnFile(const ConnectionFile& connection) {
    createEmbedded(ConnectionParts::parse(connectionString(connection)));
    if (!QFile::setPermissions(embeddedPath(connection), QFileDevice::ReadOwner | QFileDevice::WriteOwner)) {
        throw RuntimeError(errors::PathAccess, u"数据库文件［%1］不能设为只有所有者可以读取！"_s.arg(
                                                   QDir::toNativeSeparators(embeddedPath(connection))));
    }
}

void removeOwnFile(const ConnectionFile& connection) {
    for (const auto* companion : {"", "-wal", "-shm"}) {
        QFile::remove(embeddedPath(connection) + QLatin1StringView(companion));
    }
}

void installDatabase(const ConnectionFile& connection, const QString& adminPassword, const Progress& progress) {
    if (const auto fault = adminPasswordFault(adminPassword); !fault.isEmpty()) {
        throw RuntimeError(errors::InvalidCall, fault);
    }
    const bool isNewFile = awaitsInstallation(connection);
    try {
        if (isNewFile) {
            createOwnFile(connection);
        }
        openSession(connection);
        install(cnnPublic, adminPassword, progress);
    } catch (const RuntimeError&) {
        cnnPublic.Close();
        if (isNewFile) {
            removeOwnFile(connection);
        }
        throw;
    }
}

}  // namespace talvora
