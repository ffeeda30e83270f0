#pragma once

namespace talvora {

/// The program's start routine: opens the session, runs the login window, and after a login the window that it leads
/// to. Returns when the program is over.
void Main();

}  // namespace talvora
