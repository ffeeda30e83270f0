#include "workbench/outside_programs.h"

#include "platform/user_settings.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QStringList>
#include <QUrl>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

QString setting(const QString& key, const QString& preset) {
    return GetSetting(u"Help"_s, key, preset);
}

}  // namespace

QString helpFile() {
    return setting(u"HelpFile"_s, u"Talvora.chm"_s);
}

void startHelpViewer() {
    const QString file = QCoreApplication::applicationDirPath() + u"/Talvora.chm"_s;
#ifdef Q_OS_WIN
    QProcess::startDetached(u"hh.exe"_s, {QDir::toNativeSeparators(file)});
#else
    if (QFile::exists(file)) {
        QDesktopServices::openUrl(QUrl::fromLocalFile(file));
    }
#endif
}

void openWebPage() {
    const QString page = setting(u"WebPage"_s, QString());
    if (page.isEmpty()) {
        return;
    }
#ifdef Q_OS_WIN
    constexpr quint16 showMaximized = 3;
    constexpr quint32 useShowWindow = 1;
    QProcess browser;
    browser.setProgram(u"C:\\Program Files\\Internet Explorer\\IEXPLORE.EXE"_s);
    browser.setArguments({page});
    browser.setCreateProcessArgumentsModifier([](QProcess::CreateProcessArguments* process) {
        process->startupInfo->dwFlags |= useShowWindow;
        process->startupInfo->wShowWindow = showMaximized;
    });
    browser.startDetached();
#else
    QDesktopServices::openUrl(QUrl::fromUserInput(page));
#endif
}

bool startSystemInformation() {
#if defined(Q_OS_WIN)
    return QProcess::startDetached(u"msinfo32.exe"_s, {});
#elif defined(Q_OS_MACOS)
    return QProcess::startDetached(u"open"_s, {u"-a"_s, u"System Information"_s});
#else
    for (const QString& program : {u"kinfocenter"_s, u"hardinfo2"_s, u"hardinfo"_s, u"mate-system-monitor"_s}) {
        const QString path = QStandardPaths::findExecutable(program);
        if (!path.isEmpty() && QProcess::startDetached(path, {})) {
            return true;
        }
    }
    return false;
#endif
}

}  // namespace talvora
