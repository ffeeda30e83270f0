#include "support/database_fixture.h"

#include "setup/install.h"
#include "setup/tables.h"

#include <QDir>
#include <QLockFile>

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

constexpr auto serverVariable = "TALVORA_TEST_SERVER";

void open(const QString& connectionString) {
    constexpr int statementSeconds = 10;
    cnnPublic.ConnectionString = connectionString;
    cnnPublic.CommandTimeout = statementSeconds;
    cnnPublic.Open();
}

void openEmbeddedDatabase() {
    open(u"Provider=SQLOLEDB.1;Initial Catalog=:memory:;Data Source=embedded;pwd="_s);
    install(cnnPublic, u"admin"_s);
}

/// The server has one database for all: one test process at a time may use it.
void waitForServer() {
    constexpr int milliseconds = 100'000;
    static QLockFile lock(QDir::temp().filePath(u"talvora-test-server.lock"_s));
    lock.setStaleLockTime(0);
    if (!lock.isLocked() && !lock.tryLock(milliseconds)) {
        throw RuntimeError(errors::InvalidCall, u"another test process holds the server's database"_s);
    }
}

void openServerDatabase() {
    waitForServer();
    open(qEnvironmentVariable(serverVariable));
    if (presentTables(cnnPublic).isEmpty()) {
        install(cnnPublic, u"admin"_s);
        return;
    }
    for (const TableColumns& table : schemaTables()) {
        emptyTables({table.table});
    }
    installCatalogue(cnnPublic, u"admin"_s);
}

void closeDatabase() {
    cnnPublic.setObserver({});
    cnnPublic.Close();
}

}  // namespace

EmbeddedDatabase::EmbeddedDatabase() {
    openEmbeddedDatabase();
}

EmbeddedDatabase::~EmbeddedDatabase() {
    closeDatabase();
}

std::vector<Engine> engines() {
    if (qEnvironmentVariableIsEmpty(serverVariable)) {
        return {Engine::Embedded};
    }
    return {Engine::Embedded, Engine::Server};
}

std::string engineName(const ::testing::TestParamInfo<Engine>& info) {
    return info.param == Engine::Embedded ? "Embedded" : "Server";
}

void DatabaseTest::SetUp() {
    if (GetParam() == Engine::Embedded) {
        openEmbeddedDatabase();
    } else {
        openServerDatabase();
    }
}

void DatabaseTest::TearDown() {
    closeDatabase();
}

QString rowsOf(const QString& statement) {
    const Recordset rows = cnnPublic.Execute(statement);
    QStringList lines;
    for (const Row row : rows) {
        QStringList cells;
        for (int column = 0; column < rows.FieldCount(); ++column) {
            cells += row.isNull(column) ? u"null"_s : row.text(column);
        }
        lines += cells.join(u'|');
    }
    return lines.join(u'\n');
}

qint16 numberOf(const QString& statement) {
    return static_cast<qint16>(cnnPublic.Execute(statement).first().number32(0));
}

void commitWhatIsOpen() {
    cnnPublic.BeginTrans();
    cnnPublic.CommitTrans();
}

QString rowCounts(const QStringList& tables) {
    QStringList counts;
    for (const QString& table : tables) {
        counts += rowsOf(u"select count(*) from "_s + table);
    }
    return counts.join(u' ');
}

void emptyTables(const QStringList& tables) {
    for (const QString& table : tables) {
        cnnPublic.Execute(u"delete from "_s + table);
    }
}

}  // namespace talvora::test
