#include "workbench/toolbar_rights.h"

#include "access/cuser.h"
#include "platform/text.h"

namespace talvora {

using namespace Qt::StringLiterals;

void InitToolBarRight(ToolBar& toolbar, const QString& userName, const QString& module) {
    for (const QString& name : toolbar.keys()) {
        const QString key = trimBlanks(name);
        if (!key.isEmpty() && key != "exit"_L1) {
            const bool granted = cUsers::IsAccessFunction(userName, module, key);
            toolbar.setUsable(name, granted || isAdmin(userName));
        }
    }
}

}  // namespace talvora
