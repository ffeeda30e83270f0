#pragma once

#include <QString>

namespace talvora::test {

/// How many questions each paper of the terminals' bank has, and the name of its model.
inline constexpr int terminalQuestions = 6;
inline const QString terminalModel = QStringLiteral("主管模型");

/// Makes the database file with its tables.
void createTerminalDatabase(const QString& file);

/// Opens cnnPublic on the embedded database file, as every terminal of an organisation does.
void openTerminal(const QString& file);

/// What the storage engine finds wrong in the file, "ok" for nothing.
QString integrityOf(const QString& file);

}  // namespace talvora::test
