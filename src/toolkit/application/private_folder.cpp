#include "toolkit/application/private_folder.h"

#include "toolkit/application/last_resort.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <utility>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr auto namePrefix = "talvora-sheets-"_L1;

/// Held by the process whose folder it is. The lock of a process that has gone counts as free.
std::unique_ptr<QLockFile> lockOf(const QString& folder) {
    auto lock = std::make_unique<QLockFile>(QDir(folder).filePath(u"lock"_s));
    lock->setStaleLockTime(0);
    return lock;
}

/// Whether nobody but this user can have put anything there. Elsewhere than on Unix the folder for temporary files is
/// the user's own.
bool isOwn([[maybe_unused]] const QFileInfo& folder) {
#ifdef Q_OS_UNIX
    return folder.ownerId() == geteuid();
#else
    return true;
#endif
}

/// Empties a folder but for its lock; the sheets lie in folders within it, and are read-only. Links are not followed.
void removeSheets(const QString& folder) {
    for (const QFileInfo& entry : QDir(folder).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks)) {
        QDir(entry.filePath()).removeRecursively();
    }
}

}  // namespace

PrivateFolder& PrivateFolder::ofProgram() {
    static PrivateFolder folder;
    static const bool isRegistered = [] {
        onProgramEnd([](ProgramEnd) { folder.remove(); });
        return true;
    }();
    Q_UNUSED(isRegistered);
    return folder;
}

// A folder without its lock is anyone's to remove, so another one is made where that has happened.
bool PrivateFolder::make() {
    constexpr int attempts = 3;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        QTemporaryDir made(QDir(QDir::tempPath()).filePath(namePrefix + u"XXXXXX"_s));
        alive_ = lockOf(made.path());
        if (made.isValid() && alive_->tryLock(0)) {
            made.setAutoRemove(false);
            path_ = made.path();
            return true;
        }
    }
    alive_.reset();
    return false;
}

QString PrivateFolder::newPath(const QString& name) {
    if (path_.isEmpty() && !make()) {
        return {};
    }
    const QDir own(QDir(path_).filePath(QString::number(++files_)));
    return own.mkpath(u"."_s) ? own.filePath(name) : QString();
}

void PrivateFolder::remove() {
    if (path_.isEmpty()) {
        return;
    }
    removeSheets(path_);
    alive_.reset();
    // Only when it is empty: not where a sheet has stayed, nor where a later owner of the name has begun.
    QDir().rmdir(std::exchange(path_, {}));
}

void PrivateFolder::removeLeft() {
    const QDir temporary = QDir::temp();
    const auto left = temporary.entryInfoList({namePrefix + u'*'}, QDir::Dirs | QDir::NoSymLinks);
    for (const QFileInfo& folder : left) {
        PrivateFolder dead;
        dead.alive_ = lockOf(folder.filePath());
        if (isOwn(folder) && dead.alive_->tryLock(0)) {
            dead.path_ = folder.filePath();
        }
    }
}

}  // namespace talvora
