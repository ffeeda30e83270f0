#pragma once

#include "core/collection.h"
#include "core/trimmed_text.h"

#include <QString>

namespace talvora {

/// What a role may be granted in a module: a toolbar button's key, or "browse" to open the module. Only read.
struct cFunction {
    qint16 RecordID = 0;
    TrimmedText ModuleCode;
    TrimmedText FunctionKey;
    QString FunctionDesc;
};

class cFunctions : public Collection<cFunction, NumberKey<&cFunction::RecordID>> {
 public:
    /// Loads the functions of a module by key.
    cFunctions& Find(const QString& ModuleCode);
};

}  // namespace talvora
