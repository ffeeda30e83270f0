#pragma once

class QCoreApplication;

namespace talvora {

/// Puts the toolkit's own words into Chinese: buttons and the menu of a text field by the program's own words, the file
/// and print dialogs by Qt's translation where that is installed.
void installTranslations(QCoreApplication& application);

}  // namespace talvora
