#pragma once

#include <QStringList>

namespace talvora {

/// Exit codes of the command line.
enum class ExitCode : int {
    Done = 0,
    Failed = 1,  ///< the work could not be done, or the check found something missing
    Usage = 2,   ///< the command line is wrong; nothing was done
};

/// Runs the verb on the command line, without windows. `arguments` are those behind the program's name. Passwords
/// come as one line of standard input; results go to standard output, faults to standard error.
ExitCode runCommand(const QStringList& arguments);

/// Tells what is wrong with a command line.
ExitCode wrongUse(const QString& fault);

}  // namespace talvora
