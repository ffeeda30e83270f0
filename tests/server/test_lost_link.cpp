// A link to the server that is cut, held up, or gone for a while.

#include "platform/runtime_error.h"
#include "server/server_fixture.h"
#include "support/error_of.h"
#include "testbank/cexamination.h"

#include <QElapsedTimer>

#include <functional>
#include <thread>

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

class LostLinkTest : public RelayedServerTest {
 protected:
    void insert() { cnnPublic.Execute(u"insert into UserRole (UserID,RoleID) values (77,1)"_s); }
    QString inserted() { return stored(u"select count(*) from UserRole where UserID=77"_s); }

    static void standIdle() { std::this_thread::sleep_for(std::chrono::milliseconds(1200)); }
};

TEST_F(LostLinkTest, ATerminalThatStoodOverARestartGoesOn) {
    relay().cut();
    EXPECT_EQ(rowsOf(u"select count(*) from UserRole where UserID=77"_s), u"0"_s);
    relay().cut();
    standIdle();
    insert();
    relay().cut();
    EXPECT_EQ(submit(candidate(u"条理性"_s), false, {{u"001001"_s, u"条理性"_s, u"1"_s, u"AA"_s}}), Status::Done);
    EXPECT_EQ(inserted() + u' ' + stored(u"select count(*) from TestingResult"_s), u"1 1"_s);
    // The server comes back while the session looks for it.
    relay().setDown(true);
    std::thread([this] {
        standIdle();
        relay().setDown(false);
    }).detach();
    EXPECT_EQ(rowsOf(u"select count(*) from UserRole where UserID=77"_s), u"1"_s);
}

TEST_F(LostLinkTest, AChangeThatMayHaveArrivedIsNotSentAgain) {
    insert();
    relay().cut();
    EXPECT_EQ(errorOf([&] { insert(); }), 10054);
    EXPECT_EQ(inserted(), u"1"_s);
    insert();
    EXPECT_EQ(inserted(), u"2"_s);
}

TEST_F(LostLinkTest, ATransactionWhoseLinkIsLostIsOverUpToItsEnd) {
    cnnPublic.BeginTrans();
    insert();
    relay().cut();
    EXPECT_EQ(errorOf([&] { insert(); }), 10054);
    EXPECT_EQ(errorOf([&] { insert(); }), 10054) << "nothing by halves";
    EXPECT_EQ(errorOf([] { cnnPublic.CommitTrans(); }), 3902);
    EXPECT_EQ(inserted(), u"0"_s);
    insert();
    EXPECT_EQ(inserted(), u"1"_s);
    // The next transaction passes over one that is lost.
    cnnPublic.BeginTrans();
    relay().cut();
    EXPECT_EQ(errorOf([&] { insert(); }), 10054);
    cnnPublic.BeginTrans();
    insert();
    cnnPublic.CommitTrans();
    EXPECT_EQ(inserted(), u"2"_s);
}

TEST_F(LostLinkTest, TheWordsNameTheCauseWithinTheTimeLimit) {
    constexpr int limitSeconds = 3;
    openWithLimit(limitSeconds);
    const auto wordsOf = [](const QString& statement) {
        QElapsedTimer since;
        since.start();
        try {
            cnnPublic.Execute(statement);
        } catch (const DatabaseError& error) {
            EXPECT_LT(since.elapsed(), 1000 * limitSeconds + 1500);
            return error.description().section(u'，', 0, 0);
        }
        return u"done"_s;
    };
    relay().setDown(true);
    EXPECT_TRUE(wordsOf(u"select 1"_s).startsWith(u"连接不到数据库服务器［127.0.0.1"_s));
    relay().setDown(false);
    EXPECT_EQ(wordsOf(u"select 1"_s), u"done"_s);
    relay().setHeld(true);
    EXPECT_EQ(wordsOf(u"select 1"_s), u"数据库服务器没有在规定的时间内答复"_s);
    relay().setHeld(false);
    EXPECT_EQ(wordsOf(u"select 1"_s), u"done"_s);
    relay().cut();
    EXPECT_EQ(wordsOf(u"delete from UserRole"_s), u"与数据库服务器的连接已中断"_s);
}

TEST_F(LostLinkTest, NoSeriesIsStoredByHalvesOrTwiceWhereverTheLinkIsCut) {
    struct Series {
        const char* name;
        std::function<void()> run;
        QString count;  ///< what the whole series adds to
        int whole;      ///< by how much
    };
    const SheetPlan order{u"001001"_s, u"条理性"_s, u"1"_s, u"AB"_s};
    const std::vector<Series> all{
        {"single", [&] { submit(candidate(u"条理性"_s), false, {order}); },
         u"select (select count(*) from TestingResult)+(select count(*) from TestingResultDetail)"_s, 3},
        {"model",
         [&] {
             submit(candidate(u"主管模型"_s), true,
                    {{u"001"_s, u"能力"_s, {}, {}}, order, {u"001002"_s, u"判断力"_s, u"2"_s, u"AB"_s}});
         },
         u"select (select count(*) from TestingResult)+(select count(*) from TestingResultDetail)"_s, 8},
        {"paper",
         [] {
             static int number = 0;
             cExamination examination;
             examination.TypeCode = u"001001"_s;
             examination.ExaminationNum = u"N%1"_s.arg(++number);
             examination.AnswerAmount = 2;
             cQuestions questions;
             for (const qint16 key : {1, 2}) {
                 auto question = std::make_shared<cQuestion>();
                 question->QuestionID = key;
                 question->QuestionName = QString::number(key);
                 questions.Add(question);
             }
             examination.AddNew(questions);
         },
         u"select (select count(*) from Examination)+(select count(*) from ExaminationQuestion)"_s, 3},
    };
    for (const Series& series : all) {
        const auto statements = statementsOf([&] { series.run(); });
        for (qsizetype cutAt = 1; cutAt <= statements.size(); ++cutAt) {
            const int stoodThere = stored(series.count).toInt();
            qsizetype sent = 0;
            cnnPublic.setObserver([&](const QString&) {
                if (++sent == cutAt) {
                    relay().cut();
                }
            });
            series.run();
            cnnPublic.setObserver({});
            commitWhatIsOpen();
            const int added = stored(series.count).toInt() - stoodThere;
            // A loss up to the beginning of the transaction is made good.
            const bool before = cutAt <= statements.indexOf(u"begin transaction"_s) + 1;
            EXPECT_EQ(added, before ? series.whole : 0) << series.name << " cut at " << cutAt;
        }
    }
}

}  // namespace

}  // namespace talvora::test
