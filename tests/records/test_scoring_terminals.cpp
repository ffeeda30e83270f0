// Several terminals on one bank, and terminals that are killed in the middle of a submission.

#include "platform/database/connection_string.h"
#include "platform/database/embedded/database_file.h"
#include "platform/database/embedded/embedded_driver.h"
#include "platform/database/embedded/statement.h"
#include "records/scoring_bank.h"
#include "setup/install.h"
#include "support/database_fixture.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <memory>
#include <random>

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int patience = 90000;

class ScoringTerminalsTest : public testing::TestWithParam<Engine> {
 protected:
    bool isOnServer() const { return GetParam() == Engine::Server; }

    void SetUp() override {
        if (isOnServer()) {
            openFreshDatabase(Engine::Server);
            bank_ = cnnPublic.ConnectionString;
        } else {
            bank_ = folder_.filePath(u"terminals.db"_s);
            ConnectionParts parts;
            parts.initialCatalog = bank_;
            createEmbedded(parts);
            openTerminal(bank_);
            install(cnnPublic, u"admin"_s);
        }
        addPaper({u"001001"_s, 4, 6, {u"0-99 中"_s}});
        addPaper({u"001002"_s, 4, 6, {u"0-99 中"_s}});
        addModel(u"主管模型"_s, {u"001001 0.5"_s, u"001002 0.5"_s});
        cnnPublic.Close();
    }
    void TearDown() override { cnnPublic.Close(); }

    std::unique_ptr<QProcess> start(int terminal, int rounds) const {
        auto process = std::make_unique<QProcess>();
        process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process->start(QStringLiteral(TALVORA_SUBMITTER), {bank_, QString::number(terminal), QString::number(rounds)});
        return process;
    }

    /// Families that lack a row, an answer or a score, or hold another candidate's row or answer.
    static QString faultyFamilies() {
        const QString searches[] = {
            u"a.TestingNumber from TestingResult a,TestingResult b where a.TestingNumber=b.TestingNumber and "
            "a.Name<>b.Name"_s,
            u"TestingNumber from (select TestingNumber,count(*) as n from TestingResult group by TestingNumber) a "
            "where n not in (1,4)"_s,
            u"TestingNumber from TestingResult where (TypeCode is null or len(TypeCode)=6) and (Score is null or "
            "ExamQuestions<>FactQuestions)"_s,
            u"TestingNumber from TestingResult a,(select TestingID,SelectAnswer,count(*) as n from "
            "TestingResultDetail group by TestingID,SelectAnswer) b where a.TestingID=b.TestingID and "
            "(n<>6 or SelectAnswer<>right(Name,1))"_s,
            u"TestingNumber from TestingResult where len(TypeCode)=6 and TestingID not in (select TestingID from "
            "TestingResultDetail)"_s,
            u"TestingID from TestingResultDetail where TestingID not in (select TestingID from TestingResult)"_s};
        QString faulty;
        for (const QString& search : searches) {
            faulty += rowsOf(u"select "_s + search);
        }
        return faulty;
    }

    /// What the storage engine finds wrong in the file, "ok" for nothing. A server looks after its own.
    QString integrity() const {
        if (isOnServer()) {
            return u"ok"_s;
        }
        const embedded::DatabaseFile database(bank_, embedded::DatabaseFile::Mode::OpenExisting, 10);
        embedded::SqliteStatement check(database.handle(), "PRAGMA integrity_check");
        check.step();
        return check.text(0);
    }

    /// How many different values a column of the stored tests has.
    static int different(const QString& column) {
        return rowsOf(u"select count(*) from (select distinct %1 from TestingResult) a"_s.arg(column)).toInt();
    }

    QTemporaryDir folder_;
    QString bank_;
};

TALVORA_ON_EVERY_ENGINE(ScoringTerminalsTest);

TEST_P(ScoringTerminalsTest, KilledTerminalLeavesNoHalfFamily) {
    const int kills = isOnServer() ? 3 : 15;
    std::minstd_rand random(20100905);
    std::uniform_int_distribution<int> milliseconds(20, 400);
    int told = 0;
    for (int kill = 0; kill < kills; ++kill) {
        const auto terminal = start(kill, 0);
        ASSERT_TRUE(terminal->waitForReadyRead(patience));
        QThread::msleep(static_cast<unsigned long>(milliseconds(random)));
        terminal->kill();
        ASSERT_TRUE(terminal->waitForFinished(patience));
        const QByteArray output = terminal->readAllStandardOutput();
        ASSERT_FALSE(output.contains("failed")) << output.constData();
        told += static_cast<int>(output.count("stored"));

        openTerminal(bank_);
        EXPECT_EQ(integrity(), u"ok"_s);
        EXPECT_EQ(faultyFamilies(), QString()) << "after kill " << kill;
        // What the terminal told of is there, and besides at most one test for each kill.
        EXPECT_GE(different(u"TestingNumber"_s), told);
        EXPECT_LE(different(u"TestingNumber"_s), told + kill + 1);
        cnnPublic.Close();
    }
}

TEST_P(ScoringTerminalsTest, EightTerminalsAtOnceMixNothingUp) {
    constexpr int terminals = 8;
    const int rounds = isOnServer() ? 2 : 6;
    std::vector<std::unique_ptr<QProcess>> running;
    for (int terminal = 0; terminal < terminals; ++terminal) {
        running.push_back(start(terminal, rounds));
    }
    for (const auto& terminal : running) {
        ASSERT_TRUE(terminal->waitForFinished(patience));
        const QByteArray output = terminal->readAllStandardOutput();
        EXPECT_EQ(output.count("stored"), 2 * rounds) << output.constData();
    }
    openTerminal(bank_);
    EXPECT_EQ(different(u"TestingNumber"_s), terminals * rounds * 2);
    EXPECT_EQ(different(u"Name"_s), terminals * rounds * 2);
    EXPECT_EQ(faultyFamilies(), QString());
}

}  // namespace

}  // namespace talvora::test
