#pragma once

#include "core/mdlpublic.h"
#include "platform/runtime_error.h"

#include <QString>
#include <QStringList>
#include <gtest/gtest.h>

#include <vector>

namespace talvora::test {

/// Opens cnnPublic on a fresh embedded database in memory that has the tables and the catalogue rows, and closes it
/// at the end of its life. The user "admin" has the password "admin".
class EmbeddedDatabase {
 public:
    EmbeddedDatabase();
    EmbeddedDatabase(const EmbeddedDatabase&) = delete;
    EmbeddedDatabase& operator=(const EmbeddedDatabase&) = delete;
    ~EmbeddedDatabase();
};

enum class Engine { Embedded, Server };

/// The engines that the record tests run on: the embedded one, and the server that the environment variable
/// TALVORA_TEST_SERVER names by an ADO connection string to an empty database.
std::vector<Engine> engines();
std::string engineName(const ::testing::TestParamInfo<Engine>& info);

/// The base of record tests: cnnPublic is open on a database with the tables and only the catalogue rows. On a server
/// the keys that it generates go on from test to test.
class DatabaseTest : public ::testing::TestWithParam<Engine> {
 protected:
    void SetUp() override;
    void TearDown() override;
};

#define TALVORA_ON_EVERY_ENGINE(Suite) \
    INSTANTIATE_TEST_SUITE_P(On, Suite, ::testing::ValuesIn(::talvora::test::engines()), ::talvora::test::engineName)

/// What a query gives, as text: cells parted by "|", rows by line breaks, NULL as "null".
QString rowsOf(const QString& statement);

/// Ends a transaction that a failed operation may have left open by storing what it did.
void commitWhatIsOpen();

/// Runs `work` with the `failing`-th of its statements refused (counted from 1; none for 0), and gives the statements
/// that it sent, those that open and close transactions among them.
template <class Work>
QStringList statementsOf(Work&& work, qsizetype failing = 0) {
    QStringList sent;
    cnnPublic.setObserver([&](const QString& statement) {
        sent += statement;
        if (sent.size() == failing) {
            using namespace Qt::StringLiterals;
            throw DatabaseError(50000, u"refused by the test"_s, u"HY000"_s);
        }
    });
    work();
    cnnPublic.setObserver({});
    return sent;
}

/// Refuses each statement of `work` in turn, as many as there are lines in `expected`, each time after `prepare`, and
/// compares what `left` gives of the statements sent and the tables as they then are. A transaction that was left open
/// is committed before, as the program's next one would do it.
template <class Prepare, class Work, class Left>
void failEachStatement(const QStringList& expected, Prepare&& prepare, Work&& work, Left&& left) {
    for (qsizetype failing = 1; failing <= expected.size(); ++failing) {
        prepare();
        const QStringList sent = statementsOf(work, failing);
        commitWhatIsOpen();
        EXPECT_EQ(left(sent), expected[failing - 1]) << "statement " << failing;
    }
}

/// How many rows the tables hold, "2 0" for instance.
QString rowCounts(const QStringList& tables);
void emptyTables(const QStringList& tables);

}  // namespace talvora::test
