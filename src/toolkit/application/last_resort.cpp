#include "toolkit/application/last_resort.h"

#include "toolkit/forms/form.h"
#include "toolkit/forms/prompts.h"

#include <algorithm>
#include <cstdlib>
#include <utility>
#include <vector>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

struct Ending {
    std::vector<std::function<void(ProgramEnd)>> callbacks;
    std::function<void(ProgramEnd)> ender;
    bool errorShown = false;
};

Ending& ending() {
    static Ending instance;
    return instance;
}

[[noreturn]] void leaveProcess(ProgramEnd end) {
    for (const auto& callback : ending().callbacks) {
        callback(end);
    }
    std::_Exit(end == ProgramEnd::Orderly ? EXIT_SUCCESS : EXIT_FAILURE);
}

}  // namespace

void endProgram(ProgramEnd end) {
    const auto& forms = Form::loaded();
    const bool usersStay = end == ProgramEnd::Orderly && std::any_of(forms.begin(), forms.end(), [](const Form* form) {
                               return form->standsAlone();
                           });
    if (ending().ender) {
        ending().errorShown = false;
        ending().ender(end);
    } else if (!usersStay) {
        leaveProcess(end);
    }
    usersStay ? Form::dropDependent() : Form::dropAll();
    throw ProgramEnded();
}

void onProgramEnd(std::function<void(ProgramEnd)> callback) {
    ending().callbacks.push_back(std::move(callback));
}

void setProgramEnder(std::function<void(ProgramEnd)> ender) {
    ending().ender = std::move(ender);
}

bool programIsFailing() {
    return ending().errorShown;
}

void lastResort(const RuntimeError& error) {
    ending().errorShown = true;
    MsgBox(u"实时错误 '%1':\n\n%2"_s.arg(error.number()).arg(error.description()), vbCritical);
    endProgram(ProgramEnd::Failed);
}

}  // namespace talvora
