#pragma once

#include <QString>

namespace talvora {

/// A line to standard output.
void say(const QString& text);

/// A line to standard error.
void complain(const QString& text);

/// The same, but the next line of this function is written over it on a terminal.
void sayOver(const QString& text);

/// Whether standard output is a terminal, whose lines can be written over.
bool isShown();

/// Whether somebody sits at the standard input who can be asked.
bool isAsked();

/// Shows the prompt on standard error and reads a line of standard input.
QString readAnswer(const QString& prompt);

/// The same for a password, with the warning that it shows.
QString readPassword(const QString& prompt);

}  // namespace talvora
