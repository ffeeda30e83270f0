#pragma once

#include "platform/database/connection.h"

#include <QString>

#include <functional>

namespace talvora {

/// Told of long work as it goes: so many steps of so many are done.
using Progress = std::function<void(int done, int total)>;

/// A text file that the set-up library carries with it, "schema.sql" for instance.
QString setupText(const QString& name);

/// The batches of a script, parted by lines that hold GO alone. Batches of comments and blanks are left out.
QStringList scriptBatches(const QString& script);

/// Runs the batches one after the other; throws what the first failing one throws.
void runScript(Connection& connection, const QString& script, const Progress& progress = {});

/// Makes the tables and their indexes. The database must not have them yet.
void installSchema(Connection& connection, const Progress& progress = {});

/// Writes the catalogue rows into empty tables, gives the user "admin" its password and unlocks it.
/// Throws RuntimeError 5 for a password that adminPasswordFault objects to.
void installCatalogue(Connection& connection, const QString& adminPassword);

/// Both in one transaction: after a failure the database is empty again. Throws RuntimeError 5 as installCatalogue
/// does, and RuntimeError 58 for a database that already holds tables.
void install(Connection& connection, const QString& adminPassword, const Progress& progress = {});

/// Why the login window could not take the password, in words for the user; empty when it can.
QString adminPasswordFault(const QString& password);

}  // namespace talvora
