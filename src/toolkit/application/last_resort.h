#pragma once

#include "platform/runtime_error.h"

#include <exception>
#include <functional>

namespace talvora {

/// Leaves every interrupted handler after the program's end, where the process is kept alive: only under a
/// replaced ender, that is in tests. The program itself never sees one.
class ProgramEnded : public std::exception {
 public:
    const char* what() const noexcept override { return "the program has ended"; }
};

/// How the program ends: by the user's will, or by an error that nobody caught.
enum class ProgramEnd { Orderly, Failed };

/// Ends the program at once, from wherever it is, with no unload events and no further statement of the handlers
/// under way. What must still happen to the session is done by the callbacks of onProgramEnd.
[[noreturn]] void endProgram(ProgramEnd end);

/// Has `callback` run when the program ends by endProgram. It must not throw.
void onProgramEnd(std::function<void(ProgramEnd)> callback);

/// Replaces what endProgram does (run the callbacks, leave the process). When `ender` returns, every window is
/// dropped and ProgramEnded unwinds the handlers. An empty function brings the program's own back.
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
