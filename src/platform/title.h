#pragma once

#include <QString>

namespace talvora {

/// The program's title text: the caption of the workbench and the title of every message box. Its version word is
/// fixed text, not a setting.
inline QString titleText() {
    return QStringLiteral("Talvora 1.3 Build 201000905");
}

}  // namespace talvora
