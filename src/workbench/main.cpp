#include "core/mdlpublic.h"
#include "toolkit/application/application.h"
#include "toolkit/application/last_resort.h"
#include "toolkit/forms/form.h"
#include "workbench/main_routine.h"

int main(int argc, char** argv) {
    talvora::Application application(argc, argv);
    // A test cut off by an error must not be stored in part, so only an orderly end keeps what is still open.
    talvora::onProgramEnd([](talvora::ProgramEnd end) {
        if (end == talvora::ProgramEnd::Orderly) {
            talvora::cnnPublic.Close();
        } else {
            talvora::cnnPublic.Abandon();
        }
    });
    application.run(talvora::Main);
    talvora::cnnPublic.Close();
    // Sheets that are still open are the user's, and need no session.
    return application.run(talvora::Form::runUntilNoneStandsAlone);
}
