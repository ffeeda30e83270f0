#include "setup/import/import.h"
#include "setup/sheet.h"
#include "support/database_fixture.h"
#include "testbank/cexamination.h"

#include <QDate>
#include <QElapsedTimer>
#include <QStringEncoder>
#include <gtest/gtest.h>

namespace talvora {

using namespace Qt::StringLiterals;
using test::rowsOf;
using test::Sheet;

namespace {

const auto papersStatement =
    u"select TypeCode,ExaminationNum,AnswerAmount,TestingTime,Note,Author,WriteDate,Status,"
    "ScoreScope1,DescScope1,ScoreScope3,DescScope3,ScoreScope4,DescScope4 "
    "from Examination order by ExaminationID"_s;
const auto questionsStatement =
    u"select ExaminationID,QuestionName,Answer1,Score1,Answer3,Score3,Answer4,Score4 "
    "from ExaminationQuestion order by QuestionID"_s;

class Import : public ::testing::Test {
 protected:
    static ImportOutcome import(const Sheet& sheet) {
        auto outcome = importPapers(sheet.utf8());
        EXPECT_EQ(faultLines(outcome.faults), QStringList());
        return outcome;
    }

 private:
    test::EmbeddedDatabase database_;
};

TEST_F(Import, WritesTypesPapersAndQuestions) {
    auto sheet = Sheet::valid();
    sheet.set({1, u"子类说明"_s, u"考察尽责的程度"_s});
    sheet.set({1, u"结果说明1"_s, u"凡事跟进到底"_s});
    sheet.set({1, u"测评限时"_s, u"15"_s});
    sheet.set({1, u"试卷说明"_s, u"请如实作答"_s});
    sheet.set({1, u"状态"_s, u"建立中"_s});
    sheet.set({1, u"编制人员"_s, u"王敏"_s});
    sheet.set({1, u"编制日期"_s, u"2024/3/5"_s});
    const auto outcome = import(sheet);
    EXPECT_EQ(outcomeText(outcome, u"x.csv"_s),
              u"导入完成：新增测评主类 1 个、测评子类 1 个、试卷 1 份、试题 3 道。"_s);
    EXPECT_EQ(rowsOf(u"select TypeCode,TestingType,Author,WriteDate,TestingResult1,TestingResult3,TestingResult4,"
                     "TestingNote1,Note from TestingType order by TypeCode"_s),
              u"001|职业素养|null|null|null|null|null|null|null\n"
              "001001|责任心|王敏|2024-03-05|优秀|较差||凡事跟进到底|考察尽责的程度"_s);
    EXPECT_EQ(rowsOf(papersStatement), u"001001|P-1|3|15|请如实作答|王敏|2024-03-05|0 - 建立中|5-6|优秀|0-2|较差|-|"_s);
    EXPECT_EQ(rowsOf(questionsStatement),
              u"1|任务延期时您会怎么做？|做法A|2|做法C|0|null|null\n"
              "1|发现同事的差错时您会？|做法A|2|做法C|0|null|null\n"
              "1|您如何安排一天的工作？|做法A|2|做法C|0|null|null"_s);
}

TEST_F(Import, FillsInWhatTheFileLeavesOpen) {
    auto sheet = Sheet::valid();
    for (const auto& column : {u"测评限时"_s, u"状态"_s, u"编制日期"_s, u"试卷说明"_s, u"答案D"_s, u"分数D"_s,
                               u"答案E"_s, u"分数E"_s, u"结果说明4"_s}) {
        sheet.removeColumn(column);
    }
    import(sheet);
    EXPECT_EQ(rowsOf(u"select TestingTime,Note,WriteDate,AuditingDate,Status from Examination"_s),
              u"10||%1||1 - 已完成"_s.arg(QDate::currentDate().toString(Qt::ISODate)));
}

TEST_F(Import, UsesTheTypesThatAreThere) {
    import(Sheet::valid());
    auto sheet = Sheet::valid();
    sheet.set({1, u"试卷编号"_s, u"P-2"_s});
    sheet.set({1, u"子类说明"_s, u"不再写入"_s});
    sheet.appendPaper({{0, u"测评子类"_s, u"诚信"_s}, {0, u"试卷编号"_s, u"P-3"_s}});
    const auto outcome = import(sheet);
    EXPECT_EQ(outcome.mainTypes, 0);
    EXPECT_EQ(outcome.subtypes, 1);
    EXPECT_EQ(rowsOf(u"select TypeCode,TestingType,Note from TestingType order by TypeCode"_s),
              u"001|职业素养|null\n001001|责任心|\n001002|诚信|不再写入"_s);
    EXPECT_EQ(rowsOf(u"select TypeCode,ExaminationNum from Examination order by ExaminationID"_s),
              u"001001|P-1\n001001|P-2\n001002|P-3"_s);
}

TEST_F(Import, GathersTheWordsOfASubtypeFromItsPapers) {
    auto sheet = Sheet::valid();
    sheet.appendPaper({{0, u"试卷编号"_s, u"P-2"_s}, {0, u"评价结果2"_s, u"优良"_s}});
    const auto outcome = import(sheet);
    EXPECT_EQ(rowsOf(u"select TestingResult1,TestingResult2,TestingResult3,TestingResult4 from TestingType "
                     "where TypeCode='001001'"_s),
              u"优秀|一般|较差|优良"_s);
    EXPECT_EQ(outcome.notes, QStringList{u"测评子类［责任心］下各试卷的得分范围或评价结果不一致，评价结果可能取自另一份"
                                         "试卷，请核对。"_s});
}

TEST_F(Import, NotesAnAnswerEThatWillNotScore) {
    auto sheet = Sheet::valid();
    for (int row = 1; row <= 3; ++row) {
        for (const auto& letter : {u"D"_s, u"E"_s}) {
            sheet.set({row, u"答案"_s + letter, letter});
            sheet.set({row, u"分数"_s + letter, row == 3 && letter == u"E"_s ? u"1"_s : u"0"_s});
        }
    }
    EXPECT_EQ(import(sheet).notes,
              QStringList{u"试卷［P-1］中有答案 E 的分数不为 0，而测评时选择 E 不计分，请核对。"_s});
    EXPECT_EQ(rowsOf(u"select AnswerAmount from Examination"_s), u"5"_s);
}

TEST_F(Import, ReadsEveryEncodingAndSeparatorAlike) {
    auto sheet = Sheet::valid();
    sheet.set({1, u"题目"_s, u"“甲”,\n乙;丙?"_s});
    import(sheet);
    const auto wanted = rowsOf(papersStatement) + rowsOf(questionsStatement);
    ASSERT_TRUE(wanted.contains(u"“甲”,\n乙;丙?"_s));
    QStringEncoder gbk("GBK");
    const QByteArray gbkBytes = gbk.encode(sheet.text());
    const std::vector<QByteArray> files{
        "\xef\xbb\xbf" + sheet.utf8(),
        gbkBytes,
        sheet.text().replace(u'\n', u"\r\n"_s).toUtf8(),
        sheet.text(u';').toUtf8(),
        sheet.text(u'\t').toUtf8(),
    };
    for (const auto& file : files) {
        const test::EmbeddedDatabase fresh;
        EXPECT_EQ(faultLines(importPapers(file).faults), QStringList());
        EXPECT_EQ(rowsOf(papersStatement) + rowsOf(questionsStatement), wanted);
    }
}

TEST_F(Import, TakesEverythingOutAgainWhicheverStatementFails) {
    import(Sheet::valid());
    const auto allRows = [] {
        return rowsOf(u"select TypeCode,TestingType from TestingType order by TypeCode"_s) + rowsOf(papersStatement) +
               rowsOf(questionsStatement);
    };
    const auto before = allRows();
    auto sheet = Sheet::valid();
    sheet.set({1, u"测评主类"_s, u"思维能力"_s});
    sheet.set({1, u"试卷编号"_s, u"P-2"_s});
    sheet.appendPaper({{0, u"测评子类"_s, u"分析"_s}, {0, u"试卷编号"_s, u"P-3"_s}});
    const auto file = sheet.utf8();
    bool isThrough = false;
    for (qsizetype failing = 1; !isThrough; ++failing) {
        QString reported;
        const auto sent = test::statementsOf(
            [&] {
                try {
                    importPapers(file);
                } catch (const RuntimeError& error) {
                    reported = error.description();
                }
            },
            failing);
        isThrough = sent.size() < failing;
        if (!isThrough) {
            EXPECT_FALSE(reported.isEmpty()) << failing << qPrintable(sent[failing - 1]);
            EXPECT_EQ(allRows(), before) << failing << qPrintable(sent[failing - 1]);
            ASSERT_FALSE(HasFailure());
        }
    }
    EXPECT_NE(allRows(), before);
}

TEST_F(Import, OfFiveHundredQuestionsIsQuick) {
    auto sheet = Sheet::valid();
    for (int number = 4; number <= 500; ++number) {
        sheet.appendCopy({{0, u"题目"_s, u"第 %1 题"_s.arg(number)}});
    }
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(import(sheet).questions, 500);
    EXPECT_LT(timer.elapsed(), 5000);
    EXPECT_EQ(cExamination::GetExamQuestions(1), 500);
}

}  // namespace

}  // namespace talvora
