#pragma once

#include <QLockFile>
#include <QString>

#include <memory>

namespace talvora {

/// A temporary folder of this process alone, for files that are handed to other programs. They may name people (sheets
/// do), so none is left behind: the folder goes with the object, and what a killed process or an open file has kept
/// from going is swept away by a later one.
class PrivateFolder {
 public:
    PrivateFolder() = default;
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;
    ~PrivateFolder() { remove(); }

    /// The one that goes with the program, whichever way it ends.
    static PrivateFolder& ofProgram();

    /// A path for a file of this name, in a folder of its own. Empty where no folder can be made.
    QString newPath(const QString& name);

    /// Takes the folder and all that is in it away, as far as other programs let go of it.
    void remove();

    /// Takes away the folders that this user's processes have left behind which run no more.
    static void removeLeft();

 private:
    bool make();

    QString path_;  ///< empty before the first sheet
    std::unique_ptr<QLockFile> alive_;
    int files_ = 0;
};

}  // namespace talvora
