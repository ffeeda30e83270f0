#include "setup/import/import.h"
#include "setup/sheet.h"
#include "support/database_fixture.h"

#include <gtest/gtest.h>

namespace talvora {

using namespace Qt::StringLiterals;
using test::CellChange;
using test::Sheet;

namespace {

QString bankRows() {
    return test::rowsOf(u"select TypeCode,TestingType,TestingResult1,Note from TestingType order by TypeCode"_s) +
           test::rowsOf(u"select TypeCode,ExaminationNum from Examination order by ExaminationID"_s) +
           test::rowsOf(u"select QuestionName from ExaminationQuestion order by QuestionID"_s);
}

struct FaultCase {
    const char* name;
    std::vector<CellChange> changes;  ///< to a valid sheet of three questions, on lines 2 to 4
    QStringList faults;
};

void PrintTo(const FaultCase& tested, std::ostream* out) {
    *out << tested.name;
}

class ImportFaultTable : public ::testing::TestWithParam<FaultCase> {
    test::EmbeddedDatabase database_;
};

TEST_P(ImportFaultTable, IsToldWithItsLineAndNothingIsWritten) {
    auto sheet = Sheet::valid();
    for (const auto& change : GetParam().changes) {
        sheet.set(change);
    }
    const auto before = bankRows();
    EXPECT_EQ(faultLines(importPapers(sheet.utf8()).faults), GetParam().faults);
    EXPECT_EQ(bankRows(), before);
}

const auto bandsWhole = u"的得分下限只能为 0 至 99 的整数，得分上限只能为 0 至 999 的整数！"_s;

const std::vector<FaultCase> headCases{
    {"NoMainType",
     {{1, u"测评主类"_s, {}}},
     {u"第 2 行：请输入［测评主类］！"_s, u"第 3 行：请输入［测评主类］！"_s, u"第 4 行：请输入［测评主类］！"_s}},
    {"MainTypeWithoutSubtype", {{3, u"测评主类"_s, u"另一类"_s}}, {u"第 4 行：请输入［测评子类］！"_s}},
    {"SubtypeWithoutNumber", {{3, u"测评子类"_s, u"另一类"_s}}, {u"第 4 行：请输入［试卷编号］！"_s}},
    {"LongMainType",
     {{1, u"测评主类"_s, QString(26, u'主')}},
     {u"第 2 行：［测评主类］最多 25 个字符，现有 26 个！"_s}},
    {"LongNumber", {{1, u"试卷编号"_s, u"P-123456789"_s}}, {u"第 2 行：［试卷编号］最多 10 个字符，现有 11 个！"_s}},
    {"LongSubtypeNote",
     {{1, u"子类说明"_s, QString(501, u'说')}},
     {u"第 2 行：［子类说明］最多 500 个字符，现有 501 个！"_s}},
    {"LongPaperNote",
     {{1, u"试卷说明"_s, QString(51, u'说')}},
     {u"第 2 行：［试卷说明］最多 50 个字符，现有 51 个！"_s}},
    {"LongAuthor", {{1, u"编制人员"_s, QString(26, u'人')}}, {u"第 2 行：［编制人员］最多 25 个字符，现有 26 个！"_s}},
    {"Minutes", {{1, u"测评限时"_s, u"100"_s}}, {u"第 2 行：［测评限时］只能为 0 至 99 的整数！"_s}},
    {"FractionalMinutes", {{1, u"测评限时"_s, u"1.5"_s}}, {u"第 2 行：［测评限时］只能为 0 至 99 的整数！"_s}},
    {"State", {{1, u"状态"_s, u"完成"_s}}, {u"第 2 行：［状态］只能为［已完成］或［建立中］！"_s}},
    {"Date", {{1, u"编制日期"_s, u"2024-02-30"_s}}, {u"第 2 行：［编制日期］不是日期，应如 2024-03-15！"_s}},
    {"BandOneIncomplete",
     {{1, u"得分上限1"_s, {}}},
     {u"第 2 行：［序号1］的得分下限、得分上限和评价结果必须输入完整！"_s}},
    {"BandTwoMissing",
     {{1, u"得分下限2"_s, {}}, {1, u"得分上限2"_s, {}}, {1, u"评价结果2"_s, {}}},
     {u"第 2 行：［序号2］的得分下限、得分上限和评价结果必须输入完整！"_s}},
    {"BandThreeIncomplete",
     {{1, u"评价结果3"_s, {}}},
     {u"第 2 行：［序号3］的得分下限、得分上限和评价结果必须全部输入（或者全部不输入）！"_s}},
    {"ExplanationOfNoBand",
     {{1, u"结果说明4"_s, u"说明"_s}},
     {u"第 2 行：［序号4］的得分下限、得分上限和评价结果必须全部输入（或者全部不输入）！"_s}},
    {"NegativeBound", {{1, u"得分下限3"_s, u"-5"_s}}, {u"第 2 行：［序号3］"_s + bandsWhole}},
    {"FractionalBound", {{1, u"得分上限3"_s, u"1.5"_s}}, {u"第 2 行：［序号3］"_s + bandsWhole}},
    {"LongLowerBound",
     {{1, u"得分下限1"_s, u"100"_s}, {1, u"得分上限1"_s, u"200"_s}},
     {u"第 2 行：［序号1］"_s + bandsWhole}},
    {"FullWidthBound", {{1, u"得分下限1"_s, u"５"_s}}, {u"第 2 行：［序号1］"_s + bandsWhole}},
    {"BoundsTurned",
     {{1, u"得分下限1"_s, u"9"_s}, {1, u"得分上限1"_s, u"8"_s}},
     {u"第 2 行：［序号1］的得分上限不能小于得分下限！"_s}},
    {"WordTwice", {{1, u"评价结果3"_s, u"优秀"_s}}, {u"第 2 行：评价结果［优秀］重复！"_s}},
    {"RowsDisagree",
     {{1, u"测评限时"_s, u"15"_s}, {3, u"测评限时"_s, u"20"_s}},
     {u"第 4 行：［测评限时］与同一试卷第 2 行的内容不一致！"_s}},
    {"LaterRowSaysMore", {{2, u"试卷说明"_s, u"说明"_s}}, {u"第 3 行：［试卷说明］与同一试卷第 2 行的内容不一致！"_s}},
};

const std::vector<FaultCase> questionCases{
    {"NoQuestion", {{2, u"题目"_s, u"  "_s}}, {u"第 3 行：请输入［题目］！"_s}},
    {"LongQuestion", {{2, u"题目"_s, QString(101, u'题')}}, {u"第 3 行：［题目］最多 100 个字符，现有 101 个！"_s}},
    {"FirstLetter",
     {{2, u"题目"_s, u"E-mail 应当何时回复？"_s}},
     {u"第 3 行：［题目］中的第一个字符不能为［A、B、C、D、E］！"_s}},
    {"SameQuestion", {{3, u"题目"_s, u"任务延期时您会怎么做？"_s}}, {u"第 4 行：［题目］与同一试卷第 2 行的相同！"_s}},
    {"SameButForWidthAndCase",
     {{1, u"题目"_s, u"x?"_s}, {3, u"题目"_s, u"Ｘ？"_s}},
     {u"第 4 行：［题目］与同一试卷第 2 行的相同！"_s}},
    {"LongAnswer", {{2, u"答案B"_s, QString(101, u'答')}}, {u"第 3 行：［答案B］最多 100 个字符，现有 101 个！"_s}},
    {"NoAnswer", {{2, u"答案A"_s, {}}}, {u"第 3 行：请输入［答案A］及其分数！"_s}},
    {"NoScore", {{2, u"分数B"_s, {}}}, {u"第 3 行：请输入［答案B］及其分数！"_s}},
    {"ScoreOfNoAnswer", {{2, u"答案C"_s, {}}}, {u"第 3 行：请输入［答案C］及其分数！"_s}},
    {"GapBetweenAnswers",
     {{2, u"答案E"_s, u"x"_s}, {2, u"分数E"_s, u"1"_s}},
     {u"第 3 行：请输入［答案D］及其分数！"_s, u"第 3 行：本题有 5 个答案，而同一试卷第 2 行的有 3 个！"_s}},
    {"FewerAnswers",
     {{2, u"答案C"_s, {}}, {2, u"分数C"_s, {}}},
     {u"第 3 行：本题有 2 个答案，而同一试卷第 2 行的有 3 个！"_s}},
    {"ScoreOfTwoDigits", {{3, u"分数A"_s, u"10"_s}}, {u"第 4 行：［分数A］只能为 0 至 9 的一位数字！"_s}},
    {"ScoreWithSign", {{3, u"分数A"_s, u"-"_s}}, {u"第 4 行：［分数A］只能为 0 至 9 的一位数字！"_s}},
    {"FullWidthScore", {{3, u"分数A"_s, u"３"_s}}, {u"第 4 行：［分数A］只能为 0 至 9 的一位数字！"_s}},
    {"QuoteCharacter", {{2, u"答案A"_s, u"it's"_s}}, {u"第 3 行：［答案A］中不可有字符［'］！"_s}},
    {"Tab", {{2, u"题目"_s, u"a\tb"_s}}, {u"第 3 行：［题目］中不可有换行、制表等控制字符！"_s}},
    {"LineBreakInName", {{1, u"测评主类"_s, u"a\nb"_s}}, {u"第 2 行：［测评主类］中不可有换行、制表等控制字符！"_s}},
    {"NotInGbk", {{2, u"题目"_s, u"心情😀如何？"_s}}, {u"第 3 行：［题目］中有数据库不能保存的字符［😀］！"_s}},
    {"EveryFaultIsTold",
     {{1, u"状态"_s, u"?"_s}, {1, u"题目"_s, {}}, {3, u"分数A"_s, u"x"_s}},
     {u"第 2 行：［状态］只能为［已完成］或［建立中］！"_s, u"第 2 行：请输入［题目］！"_s,
      u"第 4 行：［分数A］只能为 0 至 9 的一位数字！"_s}},
};

const auto nameOfCase = [](const auto& info) { return std::string(info.param.name); };
INSTANTIATE_TEST_SUITE_P(Head, ImportFaultTable, ::testing::ValuesIn(headCases), nameOfCase);
INSTANTIATE_TEST_SUITE_P(Question, ImportFaultTable, ::testing::ValuesIn(questionCases), nameOfCase);

class ImportRefusal : public ::testing::Test {
 protected:
    static QStringList faultsOf(const Sheet& sheet) { return faultLines(importPapers(sheet.utf8()).faults); }

    // The valid sheet, in the bank already.
    static void importValid() { ASSERT_TRUE(faultsOf(Sheet::valid()).isEmpty()); }

 private:
    test::EmbeddedDatabase database_;
};

TEST_F(ImportRefusal, OfAHeader) {
    auto sheet = Sheet::valid();
    sheet.setHeader(u"试卷说明"_s, u"试卷备注"_s);
    sheet.setHeader(u"编制人员"_s, u"审核人员"_s);
    sheet.removeColumn(u"评价结果2"_s);
    sheet.removeColumn(u"答案A"_s);
    sheet.removeColumn(u"答案E"_s);
    EXPECT_EQ(faultsOf(sheet),
              (QStringList{u"第 1 行：不认识的列名［试卷备注］！"_s, u"第 1 行：列名［审核人员］重复！"_s,
                           u"第 1 行：缺少列［评价结果2］！"_s, u"第 1 行：缺少列［答案A］！"_s}));
}

TEST_F(ImportRefusal, OfAFileWithoutQuestions) {
    EXPECT_EQ(faultLines(importPapers({}).faults), QStringList{u"文件是空的！"_s});
    EXPECT_EQ(faultLines(importPapers(Sheet::valid().text().section(u'\n', 0, 0).toUtf8()).faults),
              QStringList{u"文件中没有试题！"_s});
}

TEST_F(ImportRefusal, OfACellBehindTheLastColumn) {
    const auto text = Sheet::valid().text().trimmed();
    EXPECT_EQ(faultLines(importPapers((text + u",,x\n"_s).toUtf8()).faults),
              QStringList{u"第 4 行：第 42 格［x］没有列名！"_s});
    EXPECT_EQ(faultLines(importPapers((text + u",,\n"_s).toUtf8()).faults), QStringList());
}

TEST_F(ImportRefusal, OfANumberThatTwoSubtypesShare) {
    auto sheet = Sheet::valid();
    sheet.appendPaper({{0, u"测评子类"_s, u"诚信"_s}, {0, u"题目"_s, u"另一题"_s}});
    EXPECT_EQ(faultsOf(sheet).value(0), u"第 5 行：［试卷编号］［P-1］已用于第 2 行的［责任心］！"_s);
}

TEST_F(ImportRefusal, OfANumberThatTheBankHasUnderAnySubtype) {
    importValid();
    auto sheet = Sheet::valid();
    sheet.set({1, u"测评子类"_s, u"诚信"_s});
    sheet.set({1, u"试卷编号"_s, u"ｐ-1"_s});
    EXPECT_EQ(faultsOf(sheet), QStringList{u"第 2 行：题库中已有［试卷编号］为［ｐ-1］的试卷！"_s});
}

TEST_F(ImportRefusal, OfAWordThatTheSubtypeOfTheBankLacks) {
    importValid();
    auto sheet = Sheet::valid();
    sheet.set({1, u"试卷编号"_s, u"P-2"_s});
    sheet.set({1, u"评价结果2"_s, u"普通"_s});
    EXPECT_EQ(faultsOf(sheet),
              QStringList{u"第 2 行：评价结果［普通］不是题库中测评子类［责任心］的评价结果（优秀、一般、较差）！"_s});
}

TEST_F(ImportRefusal, OfAFifthWordAndOfContradictionsBetweenPapers) {
    auto sheet = Sheet::valid();
    sheet.set({1, u"子类说明"_s, u"甲"_s});
    sheet.set({1, u"结果说明1"_s, u"甲"_s});
    sheet.appendPaper({{0, u"试卷编号"_s, u"P-2"_s},
                       {0, u"子类说明"_s, u"乙"_s},
                       {0, u"结果说明1"_s, u"乙"_s},
                       {0, u"评价结果2"_s, u"中等"_s},
                       {0, u"评价结果3"_s, u"低等"_s}});
    EXPECT_EQ(faultsOf(sheet), (QStringList{u"第 5 行：评价结果［优秀］的结果说明与同一子类前一试卷的不一致！"_s,
                                            u"第 5 行：测评子类［责任心］的试卷共有四种以上的评价结果！"_s,
                                            u"第 5 行：［子类说明］与同一子类前一试卷的不一致！"_s}));
}

TEST_F(ImportRefusal, OfATenthMainType) {
    auto sheet = Sheet::valid();
    for (int number = 2; number <= 10; ++number) {
        sheet.appendPaper({{0, u"测评主类"_s, u"主类%1"_s.arg(number)}, {0, u"试卷编号"_s, QString::number(number)}});
    }
    EXPECT_EQ(faultsOf(sheet), QStringList{u"第 29 行：题库最多有 9 个测评主类，不能再增加［主类10］！"_s});
    cnnPublic.Execute(u"insert into TestingType (TestingType,TypeCode) values ('占位','008')"_s);
    auto two = Sheet::valid();
    two.appendPaper({{0, u"测评主类"_s, u"次类"_s}, {0, u"试卷编号"_s, u"2"_s}});
    EXPECT_EQ(faultsOf(two), QStringList{u"第 5 行：题库最多有 9 个测评主类，不能再增加［次类］！"_s});
}

TEST_F(ImportRefusal, OfASubtypePast999) {
    importValid();
    cnnPublic.Execute(u"insert into TestingType (TestingType,TypeCode) values ('占位','001999')"_s);
    auto sheet = Sheet::valid();
    sheet.set({1, u"测评子类"_s, u"诚信"_s});
    sheet.set({1, u"试卷编号"_s, u"P-2"_s});
    EXPECT_EQ(faultsOf(sheet),
              QStringList{u"第 2 行：测评主类［职业素养］最多有 999 个测评子类，不能再增加［诚信］！"_s});
}

}  // namespace

}  // namespace talvora
