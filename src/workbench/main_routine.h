#pragma once

#include <memory>

namespace talvora {

class frmMain;

/// The workbench of this run; null before it has been opened.
extern std::unique_ptr<frmMain> fMainForm;

/// The program's start routine: opens the session, runs the login window, and after a login the workbench. Returns
/// when the program is over.
void Main();

}  // namespace talvora
