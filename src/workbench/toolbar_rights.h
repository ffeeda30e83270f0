#pragma once

#include "toolkit/controls/toolbar.h"

#include <QString>

namespace talvora {

/// Makes the buttons of a module's toolbar usable or grey as the user's roles tell. "admin" may use all, and everybody
/// may leave the program.
void InitToolBarRight(ToolBar& toolbar, const QString& userName, const QString& module);

}  // namespace talvora
