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

void openServerDatabase() {
    // The server has one database for all: one test process at a time may use it.
    static QLockFile lock(QDir::temp().filePath(u"talvora-test-server.lock"_s));
    lock.setStaleLockTime(0);
    if (!lock.isLocked()) {
        lock.lock();
    }
    open(qEnvironmentVariable(serverVariable));
    if (isEmptyDatabase(cnnPublic)) {
        return install(cnnPublic, u"admin"_s);
    }
    // Unlike a deletion this lets the keys begin anew, which are 16 bits wide in the client.
    QString truncations;
    for (const TableColumns& table : schemaTables()) {
        truncations += u"truncate table %1\n"_s.arg(table.table);
    }
    cnnPublic.Execute(truncations);
    installCatalogue(cnnPublic, u"admin"_s);
}

}  // namespace

EmbeddedDatabase::EmbeddedDatabase() {
    openEmbeddedDatabase();
}

EmbeddedDatabase::~EmbeddedDatabase() {
    cnnPublic.setObserver({});
    cnnPublic.Close();
}

std::vector<Engine> engines() {
    const bool alone = qEnvironmentVariableIsEmpty(serverVariable);
    return alone ? std::vector{Engine::Embedded} : std::vector{Engine::Embedded, Engine::Server};
}

std::string engineName(const ::testing::TestParamInfo<Engine>& info) {
    return info.param == Engine::Embedded ? "Embedded" : "Server";
}

void openFreshDatabase(Engine engine) {
    engine == Engine::Embedded ? openEmbeddedDatabase() : openServerDatabase();
}

void DatabaseTest::SetUp() {
    openFreshDatabase(GetParam());
}

void DatabaseTest::TearDown() {
    cnnPublic.setObserver({});
    cnnPublic.Close();
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
