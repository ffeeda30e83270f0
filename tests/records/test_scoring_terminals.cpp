// Several terminals on one database file, and terminals that are killed in the middle of a submission.

#include "core/mdlpublic.h"
#include "records/scoring_bank.h"
#include "records/terminals.h"
#include "support/database_fixture.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <vector>

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int patience = 60000;

class ScoringTerminalsTest : public testing::Test {
 protected:
    void SetUp() override {
        createTerminalDatabase(file());
        openTerminal(file());
        addPaper({u"001001"_s, 4, terminalQuestions, {u"0-99 中"_s}});
        addPaper({u"001002"_s, 4, terminalQuestions, {u"0-99 中"_s}});
        addModel(terminalModel, u"1.00"_s, {{u"001001"_s, u"条理性"_s, 0.5}, {u"001002"_s, u"判断力"_s, 0.5}});
        cnnPublic.Close();
    }
    void TearDown() override { cnnPublic.Close(); }

    QString file() const { return folder_.filePath(u"terminals.db"_s); }

    std::unique_ptr<QProcess> start(int terminal, int rounds) const {
        auto process = std::make_unique<QProcess>();
        process->start(QStringLiteral(TALVORA_SUBMITTER), {file(), QString::number(terminal), QString::number(rounds)});
        return process;
    }

    /// Families that lack a row, an answer or a score, or hold another candidate's row or answer.
    static QString faultyFamilies() {
        const QString searches[] = {
            u"select a.TestingNumber from TestingResult a,TestingResult b where a.TestingNumber=b.TestingNumber and "
            "a.Name<>b.Name"_s,
            u"select TestingNumber from (select TestingNumber,count(*) as n from TestingResult group by TestingNumber) "
            u"a "
            "where n not in (1,4)"_s,
            u"select TestingNumber from TestingResult where (TypeCode is null or len(TypeCode)=6) and (Score is null "
            u"or "
            "ExamQuestions<>FactQuestions)"_s,
            u"select a.TestingNumber from TestingResult a,(select d.TestingID,count(*) as n from TestingResultDetail d,"
            "TestingResult r where d.TestingID=r.TestingID and d.SelectAnswer=r.Education group by d.TestingID) b "
            "where "
            "a.TestingID=b.TestingID and a.ExamQuestions<>b.n"_s,
            u"select TestingNumber from TestingResult where len(TypeCode)=6 and TestingID not in (select TestingID "
            u"from "
            "TestingResultDetail)"_s,
            u"select TestingID from TestingResultDetail where TestingID not in (select TestingID from TestingResult)"_s};
        QString faulty;
        for (const QString& search : searches) {
            faulty += rowsOf(search);
        }
        return faulty;
    }

    static int different(const QString& column) {
        return rowsOf(u"select count(*) from (select distinct %1 from TestingResult) a"_s.arg(column)).toInt();
    }
    static int storedTests() { return different(u"TestingNumber"_s); }
    static int storedCandidates() { return different(u"Name"_s); }

    QTemporaryDir folder_;
};

TEST_F(ScoringTerminalsTest, KilledTerminalLeavesNoHalfFamily) {
    constexpr int kills = 15;
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

        openTerminal(file());
        EXPECT_EQ(integrityOf(file()), u"ok"_s);
        EXPECT_EQ(faultyFamilies(), QString()) << "after kill " << kill;
        // What the terminal told of is there; at most the one test of each kill that it could not tell any more
        // besides.
        EXPECT_GE(storedTests(), told);
        EXPECT_LE(storedTests(), told + kill + 1);
        cnnPublic.Close();
    }
}

TEST_F(ScoringTerminalsTest, EightTerminalsAtOnceMixNothingUp) {
    constexpr int terminals = 8;
    constexpr int rounds = 6;
    std::vector<std::unique_ptr<QProcess>> running;
    for (int terminal = 0; terminal < terminals; ++terminal) {
        running.push_back(start(terminal, rounds));
    }
    for (const auto& terminal : running) {
        ASSERT_TRUE(terminal->waitForFinished(patience));
        const QByteArray output = terminal->readAllStandardOutput();
        EXPECT_EQ(output.count("stored"), 2 * rounds) << output.constData();
    }
    openTerminal(file());
    EXPECT_EQ(storedTests(), terminals * rounds * 2);
    EXPECT_EQ(storedCandidates(), terminals * rounds * 2);
    EXPECT_EQ(faultyFamilies(), QString());
}

}  // namespace

}  // namespace talvora::test
