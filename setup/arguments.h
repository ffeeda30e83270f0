#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

namespace talvora {

/// What stands behind the verb on the command line: options with a value ("--server HOST" or "--server=HOST"), the
/// flag "--yes", and plain words.
struct Arguments {
    QHash<QString, QString> options;
    QStringList words;

    /// Reads the arguments of a verb that knows the options `known`. In `fault`, for the user, what is wrong with
    /// them; an option that would carry a password is always refused, since others could read it from the process list.
    static Arguments parse(const QStringList& given, const QStringList& known, QString& fault);

    QString option(const QString& name) const { return options.value(name); }
};

}  // namespace talvora
