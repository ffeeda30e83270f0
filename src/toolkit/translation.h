#pragma once

class QCoreApplication;

namespace talvora {

/// Puts the toolkit's own words (buttons, the menu of a text field) into Chinese: from its translation where that is
/// installed, otherwise from the few words that the program can show.
void installTranslations(QCoreApplication& application);

}  // namespace talvora
