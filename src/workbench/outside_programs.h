#pragma once

#include <QString>

namespace talvora {

/// The other programs that the workbench starts. One that is missing fails silently. What is to be configured lies in
/// the settings store (platform/user_settings.h), section "Help".

/// The name of the help file, setting "HelpFile"; empty for an installation without help.
QString helpFile();

/// Opens the help file of the application's folder in the help viewer: on Windows its own, elsewhere the desktop's.
void startHelpViewer();

/// Opens the maker's web page, setting "WebPage", in the browser. Nothing happens as long as no address is set.
void openWebPage();

/// Starts the platform's viewer of system information. False when none is installed.
bool startSystemInformation();

}  // namespace talvora
