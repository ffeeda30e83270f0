#pragma once

#include "core/mdlpublic.h"
#include "core/status.h"
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
    ~EmbeddedDatabase();
    Q_DISABLE_COPY_MOVE(EmbeddedDatabase)
};

enum class Engine { Embedded, Server };

/// The engines that the record tests run on: the embedded one, and the server that the environment variable
/// TALVORA_TEST_SERVER names by an ADO connection string to an empty database.
std::vector<Engine> engines();
std::string engineName(const ::testing::TestParamInfo<Engine>& info);

/// Opens cnnPublic on a database of this engine with the tables and only the catalogue rows, a fresh one where the
/// engine is the embedded one.
void openFreshDatabase(Engine engine);

/// The base of record tests: cnnPublic is open on a database with the tables and only the catalogue rows.
class DatabaseTest : public ::testing::TestWithParam<Engine> {
 protected:
    void SetUp() override;
    void TearDown() override;
};

#define TALVORA_ON_EVERY_ENGINE(Suite) \
    INSTANTIATE_TEST_SUITE_P(On, Suite, ::testing::ValuesIn(::talvora::test::engines()), ::talvora::test::engineName)

/// What a query gives, as text: cells parted by "|", rows by line breaks, NULL as "null".
QString rowsOf(const QString& statement);

/// Stores what a failed operation may have left open.
void commitWhatIsOpen();

/// Runs `work` with the `failing`-th of its statements refused (counted from 1; none for 0), and gives the statements
/// that it sent, those that open and close transactions among them.
template <class Work>
QStringList statementsOf(Work&& work, qsizetype failing = 0) {
    QStringList sent;
    cnnPublic.setObserver([&](const QString& statement) {
        sent += statement;
        if (sent.size() == failing) {
            throw DatabaseError(50000, QStringLiteral("refused by the test"), QStringLiteral("HY000"));
        }
    });
    work();
    cnnPublic.setObserver({});
    return sent;
}

/// What an operation does when one of its statements fails.
enum class OnError { Stops, Throws, RollsBack, GoesOn };

/// Refuses each statement of `work` in turn, each time after `prepare`, and compares what `left` gives of the tables
/// with its part of `expected` (parted by ", "). A transaction that was left open is committed before.
template <class Prepare, class Work, class Left>
void failEachStatement(OnError onError, const QString& expected, Prepare&& prepare, Work&& work, Left&& left) {
    const QStringList parts = expected.split(QStringLiteral(", "));
    prepare();
    EXPECT_EQ(statementsOf([&] { EXPECT_EQ(work(), Status::Done); }).size(), parts.size());
    for (qsizetype failing = 1; failing <= parts.size(); ++failing) {
        SCOPED_TRACE(failing);
        prepare();
        const auto failed = [&] { EXPECT_EQ(work(), Status::Failed); };
        const QStringList sent = onError == OnError::Throws
                                     ? statementsOf([&] { EXPECT_THROW(work(), DatabaseError); }, failing)
                                     : statementsOf(failed, failing);
        if (onError == OnError::Stops || onError == OnError::Throws) {
            EXPECT_EQ(sent.size(), failing);
        }
        // Where nothing was opened there is nothing to roll back.
        EXPECT_EQ(sent.contains(QStringLiteral("rollback transaction")), onError == OnError::RollsBack && failing > 2);
        commitWhatIsOpen();
        EXPECT_EQ(left(), parts[failing - 1]);
    }
}

/// The statements of an operation that succeeds, one a line.
template <class Work>
QString sentBy(Work&& work) {
    return statementsOf([&] { EXPECT_EQ(work(), Status::Done); }).join(u'\n');
}

/// The key, or another number, that a query finds.
qint16 numberOf(const QString& statement);

/// How many rows the tables hold, "2 0" for instance.
QString rowCounts(const QStringList& tables);
void emptyTables(const QStringList& tables);

}  // namespace talvora::test
