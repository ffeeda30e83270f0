#include "workbench/system_facts.h"

#include "core/mdlpublic.h"
#include "platform/database/connection_string.h"
#include "platform/title.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QLocale>
#include <QScreen>
#include <QStringList>
#include <QSysInfo>
#include <QThread>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

/// The value of "name : value" in a file of such lines; empty without it, or without the file.
QString lineOf(const QString& path, const QString& name) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        if (line.section(u':', 0, 0).trimmed() == name) {
            return line.section(u':', 1).trimmed();
        }
    }
    return {};
}

QString processor() {
    const QString model = lineOf(u"/proc/cpuinfo"_s, u"model name"_s);
    return u"%1 (%2 核)"_s.arg(model.isEmpty() ? QSysInfo::currentCpuArchitecture() : model)
        .arg(QThread::idealThreadCount());
}

QString memory() {
    constexpr qint64 bytesPerKilobyte = 1024;
    const qint64 kilobytes = lineOf(u"/proc/meminfo"_s, u"MemTotal"_s).section(u' ', 0, 0).toLongLong();
    return kilobytes > 0 ? QLocale().formattedDataSize(kilobytes * bytesPerKilobyte) : QString();
}

QString screens() {
    QStringList texts;
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QSize pixels = screen->size() * screen->devicePixelRatio();
        texts +=
            u"%1 × %2 (%3%)"_s.arg(pixels.width()).arg(pixels.height()).arg(qRound(screen->devicePixelRatio() * 100));
    }
    return texts.join(u", "_s);
}

QString database() {
    const auto parts = ConnectionParts::parse(cnnPublic.ConnectionString);
    return parts.isEmbedded() ? u"内置数据库 (SQLite): "_s + parts.initialCatalog
                              : u"SQL Server: "_s + parts.dataSource + u' ' + parts.initialCatalog;
}

}  // namespace

std::vector<std::pair<QString, QString>> systemFacts() {
    std::vector<std::pair<QString, QString>> facts{
        {u"程序"_s, titleText()},
        {u"操作系统"_s, QSysInfo::prettyProductName()},
        {u"系统内核"_s, QSysInfo::kernelType() + u' ' + QSysInfo::kernelVersion()},
        {u"计算机名"_s, QSysInfo::machineHostName()},
        {u"处理器"_s, processor()},
        {u"内存"_s, memory()},
        {u"屏幕"_s, screens()},
        {u"数据库"_s, database()},
        {u"Qt"_s, QString::fromLatin1(qVersion())},
        {u"程序文件夹"_s, QDir::toNativeSeparators(QCoreApplication::applicationDirPath())},
    };
    std::erase_if(facts, [](const auto& fact) { return fact.second.isEmpty(); });
    return facts;
}

}  // namespace talvora
