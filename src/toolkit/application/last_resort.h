#pragma once

#include "platform/runtime_error.h"

#include <exception>
#include <functional>

namespace talvora {

/// Leaves every interrupted handler after the program's end, where the process goes on: while windows of the user's own
/// are open, and under a replaced ender, that is in tests.
class ProgramEnded : public std::exception {
 public:
    const char* what() const noexcept override { return "the program has ended"; }
};

/// How the program ends: by the user's will, or by an error that nobody caught.
enum class ProgramEnd { Orderly, Failed };

/// Ends the program at once, from wherever it is, with no unload events and no further statement of the handlers
/// under way. What must still happen to the session is done by the callbacks of onProgramEnd.
///
/// An orderly end leaves open the windows that stand alone (Form::standsAlone), since they are the user's. Then the
/// process goes on without the rest of the program: ProgramEnded takes the main routine to its end, and whoever called
/// that waits for the last of those windows.
[[noreturn]] void endProgram(ProgramEnd end);

/// Has `callback` run when endProgram leaves the process. It must not throw.
void onProgramEnd(std::function<void(ProgramEnd)> callback);

/// Replaces how endProgram leaves the process (it runs the callbacks, and is gone). When `ender` returns, the windows
/// are dropped and ProgramEnded unwinds the handlers. An empty function brings the program's own back.
void setProgramEnder(std::function<void(ProgramEnd)> ender);

/// The run-time's error box with the number and words of `error`; then the program ends.
[[noreturn]] void lastResort(const RuntimeError& error);

/// Whether the error box is on the screen, after which nothing follows.
bool programIsFailing();

/// Runs a handler of the event dispatch: an error that leaves it goes to the last resort. While the error box of
/// another one is on the screen, no handler runs any more, a timer's least of all.
template <class Handler>
void guarded(Handler&& handler) {
    if (programIsFailing()) {
        return;
    }
    try {
        handler();
    } catch (const ProgramEnded&) {
        return;
    } catch (const RuntimeError& error) {
        try {
            lastResort(error);
        } catch (const ProgramEnded&) {
            return;
        }
    }
}

}  // namespace talvora
