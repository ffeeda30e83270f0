#include "records/terminals.h"

#include "core/mdlpublic.h"
#include "platform/database/connection_string.h"
#include "platform/database/embedded/database_file.h"
#include "platform/database/embedded/embedded_driver.h"
#include "platform/database/embedded/statement.h"
#include "setup/install.h"

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int timeoutSeconds = 10;

}  // namespace

void createTerminalDatabase(const QString& file) {
    ConnectionParts parts;
    parts.initialCatalog = file;
    createEmbedded(parts);
    openTerminal(file);
    install(cnnPublic, u"admin"_s);
    cnnPublic.Close();
}

void openTerminal(const QString& file) {
    cnnPublic.ConnectionString =
        u"Provider=SQLOLEDB.1;Persist Security Info=True;User ID=;Initial Catalog=%1;Data Source=embedded;pwd="_s.arg(
            file);
    cnnPublic.CommandTimeout = timeoutSeconds;
    cnnPublic.Open();
}

QString integrityOf(const QString& file) {
    const embedded::DatabaseFile database(file, embedded::DatabaseFile::Mode::OpenExisting, timeoutSeconds);
    embedded::SqliteStatement check(database.handle(), "PRAGMA integrity_check");
    check.step();
    return check.text(0);
}

}  // namespace talvora::test
