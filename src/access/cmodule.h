#pragma once

#include "core/collection.h"
#include "core/trimmed_text.h"

#include <QString>

namespace talvora {

/// A heading (three digits) or a module (six) of the module tree: a catalogue that the program only reads.
struct cModule {
    qint16 RecordID = 0;
    TrimmedText ModuleCode;
    TrimmedText ModuleName;
    QString TableName;  ///< the module's key, "testing" for instance; names no table
    QString Note;
};

class cModules : public Collection<cModule, NumberKey<&cModule::RecordID>> {
 public:
    /// Loads the headings for an empty code, else the modules under the heading.
    cModules& Find(const QString& ParentCode);
};

}  // namespace talvora
