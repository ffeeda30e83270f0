#pragma once

#include "setup/care/change.h"

namespace talvora {

/// What an archive takes away.
struct ArchiveSize {
    qint32 tests = 0;    ///< families
    qint32 rows = 0;     ///< of TestingResult
    qint32 answers = 0;  ///< of TestingResultDetail
};

/// Moves old tests out of a bank into an embedded bank of its own, which the client can open.
class Archive {
 public:
    /// The tests of the days before `before`, yyyy-mm-dd, into the file `path`, which must not exist; a relative path
    /// counts from the current directory. Throws RuntimeError 5 or 58, with words for the user, for a date or a path
    /// that will not do.
    Archive(const QString& before, const QString& path);

    const QString& path() const { return path_; }

    /// Chooses the tests: families of which every row is old enough. Writes nothing.
    ArchiveSize choose(Connection& source);

    /// Makes the file, with everything but the other tests, reads both back and compares them row by row, and only
    /// then deletes what was chosen, in one transaction. After a failure the file is gone and the bank as it was;
    /// only when a failing commit leaves it open what has become of the bank, the file stays.
    void run(Connection& source, const Tidings& tidings = {});

 private:
    QString before_;
    QString path_;
};

}  // namespace talvora
