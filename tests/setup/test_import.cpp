#include "setup/import/import.h"
#include "setup/install.h"
#include "setup/sheet.h"
#include "support/database_fixture.h"
#include "support/error_of.h"

#include <QDate>
#include <QStringEncoder>
#include <gtest/gtest.h>

namespace talvora::test {

using namespace Qt::StringLiterals;

static QString typeRows() {
    return rowsOf(
        u"select TypeCode,TestingType,Author,WriteDate,TestingResult1,TestingResult2,TestingResult3,"
        "TestingResult4,TestingNote1,Note from TestingType order by TypeCode"_s);
}

static QString paperRows() {
    return rowsOf(
               u"select TypeCode,ExaminationNum,AnswerAmount,TestingTime,Note,Author,WriteDate,Status,ScoreScope1,"
               "DescScope1,ScoreScope3,DescScope3,ScoreScope4,DescScope4 from Examination order by ExaminationID"_s) +
           u'\n' +
           rowsOf(
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

    /// The faults, one a line. The file must have some, and nothing of it may be written.
    static QString faultsOf(const QByteArray& file) {
        const auto before = typeRows() + paperRows();
        const auto faults = faultLines(importPapers(file).faults);
        EXPECT_FALSE(faults.isEmpty());
        EXPECT_EQ(typeRows() + paperRows(), before);
        return faults.join(u'\n');
    }
    static QString faultsOf(const Sheet& sheet) { return faultsOf(sheet.utf8()); }

    const EmbeddedDatabase database;
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
    EXPECT_EQ(paperRows(),
              u"001001|P-1|3|15|请如实作答|王敏|2024-03-05|0 - 建立中|5-6|优秀|0-2|较差|-|\n"
              "1|任务延期时您会怎么做？|做法A|2|做法C|0|null|null\n"
              "1|发现同事的差错时您会？|做法A|2|做法C|0|null|null\n"
              "1|您如何安排一天的工作？|做法A|2|做法C|0|null|null"_s);
}

TEST_F(Import, FillsInWhatTheFileLeavesOpen) {
    Sheet sheet;
    for (const auto& column : {u"测评限时"_s, u"状态"_s, u"编制日期"_s, u"试卷说明"_s, u"答案E"_s}) {
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
    EXPECT_EQ(rowsOf(u"select t.TypeCode,TestingType,t.Note,ExaminationNum from TestingType t, Examination e "
                     "where t.TypeCode=e.TypeCode order by ExaminationID"_s),
              u"001001|责任心||P-1\n001001|责任心||P-2\n001002|诚信|不再写入|P-3"_s);
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
    const auto wanted = paperRows();
    ASSERT_TRUE(wanted.contains(u"“甲”,\n乙;丙?"_s));
    const QByteArray gbk = QStringEncoder("GBK").encode(sheet.text());
    for (const QByteArray& file :
         {"\xef\xbb\xbf" + sheet.utf8(), gbk, sheet.text().replace(u'\n', u"\r\n"_s).toUtf8(),
          sheet.utf8().replace('\n', '\r'), sheet.text(u';').toUtf8(), sheet.text(u'\t').toUtf8()}) {
        const EmbeddedDatabase fresh;
        EXPECT_EQ(faultLines(importPapers(file).faults), QStringList());
        EXPECT_EQ(paperRows(), wanted);
    }
}

TEST_F(Import, TakesEverythingOutAgainWhicheverStatementFails) {
    Sheet sheet(u"1 测评主类=思维能力|1 试卷编号=P-2"_s);
    sheet.appendPaper(u"1 测评子类=分析|1 试卷编号=P-3"_s);
    import(Sheet());
    const auto before = typeRows() + paperRows();
    bool isThrough = false;
    for (qsizetype failing = 1; !isThrough; ++failing) {
        const auto sent = statementsOf([&] { isThrough = errorOf([&] { importPapers(sheet.utf8()); }) == 0; }, failing);
        ASSERT_EQ(isThrough, sent.size() < failing);
        ASSERT_EQ(typeRows() + paperRows() != before, isThrough) << sent.last().toStdString();
    }
}

TEST_F(Import, TellsEveryFaultWithItsLine) {
    const auto longText = [](int size) { return QString(size, u'长'); };
    const auto bandsWhole = u"的得分下限只能为 0 至 99 的整数，得分上限只能为 0 至 999 的整数！"_s;
    const auto whole = u"的得分下限、得分上限和评价结果必须输入完整！"_s;
    const auto allOrNone = u"的得分下限、得分上限和评价结果必须全部输入（或者全部不输入）！"_s;
    // Changes to a valid sheet of three questions, on lines 2 to 4, and the faults that they make.
    const std::pair<QString, QString> cases[] = {
        {u"3 测评主类=另一类"_s, u"第 4 行：请输入［测评子类］！"_s},
        {u"3 测评子类=另一类"_s, u"第 4 行：请输入［试卷编号］！"_s},
        {u"1 试卷编号="_s + longText(11), u"第 2 行：［试卷编号］最多 10 个字符，现有 11 个！"_s},
        {u"1 测评限时=100"_s, u"第 2 行：［测评限时］只能为 0 至 99 的整数！"_s},
        {u"1 编制日期=2024-02-30"_s, u"第 2 行：［编制日期］不是日期，应如 2024-03-15！"_s},
        {u"1 得分下限2=|1 得分上限2=|1 评价结果2="_s, u"第 2 行：［序号2］"_s + whole},
        {u"1 结果说明4=说明"_s, u"第 2 行：［序号4］"_s + allOrNone},
        {u"1 得分下限1=５"_s, u"第 2 行：［序号1］"_s + bandsWhole},
        {u"1 得分下限1=9|1 得分上限1=8"_s, u"第 2 行：［序号1］的得分上限不能小于得分下限！"_s},
        {u"1 评价结果3=优秀"_s, u"第 2 行：评价结果［优秀］重复！"_s},
        {u"1 测评限时=15|3 测评限时=20"_s, u"第 4 行：［测评限时］与同一试卷第 2 行的内容不一致！"_s},
        {u"2 题目=  "_s, u"第 3 行：请输入［题目］！"_s},
        {u"2 题目=E-mail 何时回复？"_s, u"第 3 行：［题目］中的第一个字符不能为［A、B、C、D、E］！"_s},
        {u"1 题目=x?|2 题目=Ｘ？"_s, u"第 3 行：［题目］与同一试卷第 2 行的相同！"_s},
        {u"2 答案A="_s, u"第 3 行：请输入［答案A］及其分数！"_s},
        {u"2 答案E=x|2 分数E=1"_s,
         u"第 3 行：请输入［答案D］及其分数！\n第 3 行：本题有 5 个答案，而同一试卷第 2 行的有 3 个！"_s},
        {u"3 分数A=10"_s, u"第 4 行：［分数A］只能为 0 至 9 的一位数字！"_s},
        {u"2 答案A=it's"_s, u"第 3 行：［答案A］中不可有字符［'］！"_s},
        {u"2 题目=a\tb"_s, u"第 3 行：［题目］中不可有换行、制表等控制字符！"_s},
        {u"2 题目=心情😀如何？"_s, u"第 3 行：［题目］中有数据库不能保存的字符［😀］！"_s},
        {u"1 状态=?|1 题目=|3 分数A=x"_s,
         u"第 2 行：［状态］只能为［已完成］或［建立中］！\n第 2 行：请输入［题目］！\n"
         "第 4 行：［分数A］只能为 0 至 9 的一位数字！"_s},
    };
    for (const auto& [changes, faults] : cases) {
        EXPECT_EQ(faultsOf(Sheet(changes)), faults) << qPrintable(changes);
    }
}

TEST_F(Import, RefusesAWrongHeaderAndCellsWithoutOne) {
    Sheet sheet;
    sheet.removeColumn(u"评价结果2"_s);
    sheet.removeColumn(u"答案A"_s);
    sheet.removeColumn(u"答案E"_s);
    auto text = sheet.text().replace(u"试卷说明"_s, u"试卷备注"_s).replace(u"编制人员"_s, u"审核人员"_s);
    EXPECT_EQ(faultsOf(text.toUtf8()),
              u"第 1 行：不认识的列名［试卷备注］！\n第 1 行：列名［审核人员］重复！\n"
              "第 1 行：缺少列［评价结果2］！\n第 1 行：缺少列［答案A］！"_s);
    text = Sheet().text();
    EXPECT_EQ(faultsOf(text.section(u'\n', 0, 0).toUtf8()), u"文件中没有试题！"_s);
    EXPECT_EQ(faultsOf(QByteArray()), u"文件是空的！"_s);
    EXPECT_EQ(faultsOf((text.trimmed() + u",,x\n"_s).toUtf8()), u"第 4 行：第 42 格［x］没有列名！"_s);
    EXPECT_TRUE(importPapers((text.trimmed() + u",,\n"_s).toUtf8()).faults.empty());
}

TEST_F(Import, RefusesWhatContradictsTheBank) {
    ASSERT_TRUE(importPapers(Sheet().utf8()).faults.empty());
    EXPECT_EQ(faultsOf(Sheet(u"1 测评子类=诚信|1 试卷编号=ｐ-1"_s)),
              u"第 2 行：题库中已有［试卷编号］为［ｐ-1］的试卷！"_s);
    EXPECT_EQ(faultsOf(Sheet(u"1 试卷编号=P-2|1 评价结果2=普通"_s)),
              u"第 2 行：评价结果［普通］不是题库中测评子类［责任心］的评价结果（优秀、一般、较差）！"_s);
    cnnPublic.Execute(u"insert into TestingType (TestingType,TypeCode) values ('占位','001999'),('占位','009')"_s);
    EXPECT_EQ(faultsOf(Sheet(u"1 测评子类=诚信|1 试卷编号=P-2"_s)),
              u"第 2 行：测评主类［职业素养］最多有 999 个测评子类，不能再增加［诚信］！"_s);
    EXPECT_EQ(faultsOf(Sheet(u"1 测评主类=次类|1 试卷编号=P-2"_s)),
              u"第 2 行：题库最多有 9 个测评主类，不能再增加［次类］！"_s);
    runScript(cnnPublic,
              u"drop table ExaminationQuestion\nGO\n"
              "create table ExaminationQuestion (QuestionID int null,QuestionName nvarchar(9) null)\nGO\n"
              "insert into ExaminationQuestion (QuestionID) values (32765)"_s);
    EXPECT_EQ(faultLines(importPapers(Sheet(u"1 试卷编号=P-2"_s).utf8()).faults),
              QStringList(u"题库中试题的编号将超过 32767，不能导入！"_s));
}

TEST_F(Import, RefusesPapersThatContradictEachOther) {
    EXPECT_EQ(faultsOf(Sheet().appendPaper(u"1 测评子类=诚信"_s)).section(u'\n', 0, 0),
              u"第 5 行：［试卷编号］［P-1］已用于第 2 行的［责任心］！"_s);
    Sheet sheet(u"1 子类说明=甲|1 结果说明1=甲"_s);
    sheet.appendPaper(u"1 试卷编号=P-2|1 子类说明=乙|1 结果说明1=乙|1 评价结果2=中等|1 评价结果3=低等"_s);
    EXPECT_EQ(faultsOf(sheet),
              u"第 5 行：评价结果［优秀］的结果说明与同一子类前一试卷的不一致！\n"
              "第 5 行：测评子类［责任心］的试卷共有四种以上的评价结果！\n"
              "第 5 行：［子类说明］与同一子类前一试卷的不一致！"_s);
}

}  // namespace talvora::test
