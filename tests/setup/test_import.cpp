#include "setup/import/import.h"
#include "setup/sheet.h"
#include "support/database_fixture.h"

#include <QDate>
#include <QStringEncoder>
#include <gtest/gtest.h>

namespace talvora {

using namespace Qt::StringLiterals;
using test::rowsOf;
using test::Sheet;

namespace {

QString typeRows() {
    return rowsOf(
        u"select TypeCode,TestingType,Author,WriteDate,TestingResult1,TestingResult2,TestingResult3,"
        "TestingResult4,TestingNote1,Note from TestingType order by TypeCode"_s);
}

QString paperRows() {
    return rowsOf(
        u"select TypeCode,ExaminationNum,AnswerAmount,TestingTime,Note,Author,WriteDate,Status,ScoreScope1,"
        "DescScope1,ScoreScope3,DescScope3,ScoreScope4,DescScope4 from Examination order by ExaminationID"_s);
}

QString questionRows() {
    return rowsOf(
        u"select ExaminationID,QuestionName,Answer1,Score1,Answer3,Score3,Answer4,Score4 "
        "from ExaminationQuestion order by QuestionID"_s);
}

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
    const auto outcome =
        import(Sheet(u"1 子类说明=考察尽责的程度|1 结果说明1=凡事跟进到底|1 测评限时=15|"
                     "1 试卷说明=请如实作答|1 状态=建立中|1 编制人员=王敏|1 编制日期=2024/3/5"_s));
    EXPECT_EQ(outcomeText(outcome, u"x.csv"_s),
              u"导入完成：新增测评主类 1 个、测评子类 1 个、试卷 1 份、试题 3 道。"_s);
    EXPECT_EQ(typeRows(),
              u"001|职业素养|null|null|null|null|null|null|null|null\n"
              "001001|责任心|王敏|2024-03-05|优秀|一般|较差||凡事跟进到底|考察尽责的程度"_s);
    EXPECT_EQ(paperRows(), u"001001|P-1|3|15|请如实作答|王敏|2024-03-05|0 - 建立中|5-6|优秀|0-2|较差|-|"_s);
    EXPECT_EQ(questionRows(),
              u"1|任务延期时您会怎么做？|做法A|2|做法C|0|null|null\n"
              "1|发现同事的差错时您会？|做法A|2|做法C|0|null|null\n"
              "1|您如何安排一天的工作？|做法A|2|做法C|0|null|null"_s);
}

TEST_F(Import, FillsInWhatTheFileLeavesOpen) {
    Sheet sheet;
    for (const auto& column : {u"测评限时"_s, u"状态"_s, u"编制日期"_s, u"试卷说明"_s, u"答案E"_s, u"分数E"_s}) {
        sheet.removeColumn(column);
    }
    import(sheet);
    EXPECT_EQ(rowsOf(u"select TestingTime,Note,WriteDate,AuditingDate,Status from Examination"_s),
              u"10||%1||1 - 已完成"_s.arg(QDate::currentDate().toString(Qt::ISODate)));
}

TEST_F(Import, UsesTheTypesThatAreThere) {
    import(Sheet());
    Sheet sheet(u"1 试卷编号=P-2|1 子类说明=不再写入"_s);
    EXPECT_EQ(outcomeText(import(sheet.appendPaper(u"1 测评子类=诚信|1 试卷编号=P-3"_s)), u"x.csv"_s),
              u"导入完成：新增测评主类 0 个、测评子类 1 个、试卷 2 份、试题 6 道。"_s);
    EXPECT_EQ(rowsOf(u"select TypeCode,TestingType,Note from TestingType order by TypeCode"_s),
              u"001|职业素养|null\n001001|责任心|\n001002|诚信|不再写入"_s);
    EXPECT_EQ(rowsOf(u"select TypeCode,ExaminationNum from Examination order by ExaminationID"_s),
              u"001001|P-1\n001001|P-2\n001002|P-3"_s);
}

TEST_F(Import, GathersTheWordsOfASubtypeAndNotesWhatToLookAt) {
    Sheet sheet;
    sheet.appendPaper(
        u"1 试卷编号=P-2|1 评价结果2=优良|1 答案D=x|1 分数D=0|1 答案E=x|1 分数E=1|"
        "2 答案D=x|2 分数D=0|2 答案E=x|2 分数E=0|3 答案D=x|3 分数D=0|3 答案E=x|3 分数E=0"_s);
    EXPECT_EQ(
        import(sheet).notes,
        (QStringList{u"测评子类［责任心］下各试卷的得分范围或评价结果不一致，评价结果可能取自另一份试卷，请核对。"_s,
                     u"试卷［P-2］中有答案 E 的分数不为 0，而测评时选择 E 不计分，请核对。"_s}));
    EXPECT_TRUE(typeRows().contains(u"|优秀|一般|较差|优良|"_s)) << qPrintable(typeRows());
}

TEST_F(Import, ReadsEveryEncodingAndSeparatorAlike) {
    const Sheet sheet(u"1 题目=“甲”,\n乙;丙?"_s);
    import(sheet);
    const auto wanted = paperRows() + questionRows();
    ASSERT_TRUE(wanted.contains(u"“甲”,\n乙;丙?"_s));
    const QByteArray gbk = QStringEncoder("GBK").encode(sheet.text());
    for (const QByteArray& file : {"\xef\xbb\xbf" + sheet.utf8(), gbk, sheet.text().replace(u'\n', u"\r\n"_s).toUtf8(),
                                   sheet.text(u';').toUtf8(), sheet.text(u'\t').toUtf8()}) {
        const test::EmbeddedDatabase fresh;
        EXPECT_EQ(faultLines(importPapers(file).faults), QStringList());
        EXPECT_EQ(paperRows() + questionRows(), wanted);
    }
}

TEST_F(Import, TakesEverythingOutAgainWhicheverStatementFails) {
    const auto allRows = [] { return typeRows() + paperRows() + questionRows(); };
    Sheet sheet(u"1 测评主类=思维能力|1 试卷编号=P-2"_s);
    sheet.appendPaper(u"1 测评子类=分析|1 试卷编号=P-3"_s);
    import(Sheet());
    const auto whole = test::statementsOf([&] { import(sheet); });
    const test::EmbeddedDatabase fresh;
    import(Sheet());
    const auto before = allRows();
    for (qsizetype failing = 1; failing <= whole.size(); ++failing) {
        SCOPED_TRACE(whole[failing - 1].toStdString());
        test::statementsOf([&] { EXPECT_THROW(importPapers(sheet.utf8()), RuntimeError); }, failing);
        ASSERT_EQ(allRows(), before);
    }
}

}  // namespace

}  // namespace talvora
