#include "setup/import/import.h"
#include "setup/install.h"
#include "setup/sheet.h"
#include "support/database_fixture.h"

#include <gtest/gtest.h>

namespace talvora {

using namespace Qt::StringLiterals;
using test::Sheet;

namespace {

QString bankRows() {
    return test::rowsOf(u"select TypeCode,TestingType,TestingResult1,Note from TestingType order by TypeCode"_s) +
           test::rowsOf(u"select TypeCode,ExaminationNum from Examination order by ExaminationID"_s) +
           test::rowsOf(u"select QuestionName from ExaminationQuestion order by QuestionID"_s);
}

class ImportRefusal : public ::testing::Test {
 protected:
    // The faults, one a line. The file must have some, and nothing of it may have been written.
    static QString faultsOf(const QByteArray& file) {
        const auto before = bankRows();
        const auto faults = faultLines(importPapers(file).faults);
        EXPECT_FALSE(faults.isEmpty());
        EXPECT_EQ(bankRows(), before);
        return faults.join(u'\n');
    }
    static QString faultsOf(const Sheet& sheet) { return faultsOf(sheet.utf8()); }

 private:
    test::EmbeddedDatabase database_;
};

struct FaultCase {
    QString changes;  ///< to a valid sheet of three questions, on lines 2 to 4
    QString faults;
};

TEST_F(ImportRefusal, TellsEveryFaultWithItsLine) {
    const auto longText = [](int size) { return QString(size, u'长'); };
    const auto bandsWhole = u"的得分下限只能为 0 至 99 的整数，得分上限只能为 0 至 999 的整数！"_s;
    const auto whole = u"的得分下限、得分上限和评价结果必须输入完整！"_s;
    const auto allOrNone = u"的得分下限、得分上限和评价结果必须全部输入（或者全部不输入）！"_s;
    const std::vector<FaultCase> cases{
        {u"1 测评主类="_s,
         u"第 2 行：请输入［测评主类］！\n第 3 行：请输入［测评主类］！\n第 4 行：请输入［测评主类］！"_s},
        {u"3 测评主类=另一类"_s, u"第 4 行：请输入［测评子类］！"_s},
        {u"3 测评子类=另一类"_s, u"第 4 行：请输入［试卷编号］！"_s},
        {u"1 测评主类="_s + longText(26), u"第 2 行：［测评主类］最多 25 个字符，现有 26 个！"_s},
        {u"1 试卷编号="_s + longText(11), u"第 2 行：［试卷编号］最多 10 个字符，现有 11 个！"_s},
        {u"1 子类说明="_s + longText(501), u"第 2 行：［子类说明］最多 500 个字符，现有 501 个！"_s},
        {u"1 试卷说明="_s + longText(51), u"第 2 行：［试卷说明］最多 50 个字符，现有 51 个！"_s},
        {u"1 测评限时=100"_s, u"第 2 行：［测评限时］只能为 0 至 99 的整数！"_s},
        {u"1 状态=完成"_s, u"第 2 行：［状态］只能为［已完成］或［建立中］！"_s},
        {u"1 编制日期=2024-02-30"_s, u"第 2 行：［编制日期］不是日期，应如 2024-03-15！"_s},
        {u"1 得分上限1="_s, u"第 2 行：［序号1］"_s + whole},
        {u"1 得分下限2=|1 得分上限2=|1 评价结果2="_s, u"第 2 行：［序号2］"_s + whole},
        {u"1 评价结果3="_s, u"第 2 行：［序号3］"_s + allOrNone},
        {u"1 结果说明4=说明"_s, u"第 2 行：［序号4］"_s + allOrNone},
        {u"1 得分下限3=-5"_s, u"第 2 行：［序号3］"_s + bandsWhole},
        {u"1 得分上限3=1.5"_s, u"第 2 行：［序号3］"_s + bandsWhole},
        {u"1 得分下限1=100|1 得分上限1=200"_s, u"第 2 行：［序号1］"_s + bandsWhole},
        {u"1 得分下限1=５"_s, u"第 2 行：［序号1］"_s + bandsWhole},
        {u"1 得分下限1=9|1 得分上限1=8"_s, u"第 2 行：［序号1］的得分上限不能小于得分下限！"_s},
        {u"1 评价结果3=优秀"_s, u"第 2 行：评价结果［优秀］重复！"_s},
        {u"1 测评限时=15|3 测评限时=20"_s, u"第 4 行：［测评限时］与同一试卷第 2 行的内容不一致！"_s},
        {u"2 试卷说明=说明"_s, u"第 3 行：［试卷说明］与同一试卷第 2 行的内容不一致！"_s},
        {u"2 题目=  "_s, u"第 3 行：请输入［题目］！"_s},
        {u"2 题目="_s + longText(101), u"第 3 行：［题目］最多 100 个字符，现有 101 个！"_s},
        {u"2 题目=E-mail 何时回复？"_s, u"第 3 行：［题目］中的第一个字符不能为［A、B、C、D、E］！"_s},
        {u"1 题目=x?|3 题目=x?"_s, u"第 4 行：［题目］与同一试卷第 2 行的相同！"_s},
        {u"2 题目=x?|3 题目=X?"_s, u"第 4 行：［题目］与同一试卷第 3 行的相同！"_s},
        {u"1 题目=x?|2 题目=ｘ？"_s, u"第 3 行：［题目］与同一试卷第 2 行的相同！"_s},
        {u"2 答案B="_s + longText(101), u"第 3 行：［答案B］最多 100 个字符，现有 101 个！"_s},
        {u"2 答案A="_s, u"第 3 行：请输入［答案A］及其分数！"_s},
        {u"2 分数B="_s, u"第 3 行：请输入［答案B］及其分数！"_s},
        {u"2 答案C="_s, u"第 3 行：请输入［答案C］及其分数！"_s},
        {u"2 答案E=x|2 分数E=1"_s,
         u"第 3 行：请输入［答案D］及其分数！\n第 3 行：本题有 5 个答案，而同一试卷第 2 行的有 3 个！"_s},
        {u"2 答案C=|2 分数C="_s, u"第 3 行：本题有 2 个答案，而同一试卷第 2 行的有 3 个！"_s},
        {u"3 分数A=10"_s, u"第 4 行：［分数A］只能为 0 至 9 的一位数字！"_s},
        {u"3 分数A=-"_s, u"第 4 行：［分数A］只能为 0 至 9 的一位数字！"_s},
        {u"3 分数A=３"_s, u"第 4 行：［分数A］只能为 0 至 9 的一位数字！"_s},
        {u"2 答案A=it's"_s, u"第 3 行：［答案A］中不可有字符［'］！"_s},
        {u"2 题目=a\tb"_s, u"第 3 行：［题目］中不可有换行、制表等控制字符！"_s},
        {u"1 测评主类=a\nb"_s, u"第 2 行：［测评主类］中不可有换行、制表等控制字符！"_s},
        {u"2 题目=心情😀如何？"_s, u"第 3 行：［题目］中有数据库不能保存的字符［😀］！"_s},
        {u"1 状态=?|1 题目=|3 分数A=x"_s,
         u"第 2 行：［状态］只能为［已完成］或［建立中］！\n第 2 行：请输入［题目］！\n"
         "第 4 行：［分数A］只能为 0 至 9 的一位数字！"_s},
    };
    for (const auto& tested : cases) {
        EXPECT_EQ(faultsOf(Sheet(tested.changes)), tested.faults) << qPrintable(tested.changes);
    }
}

TEST_F(ImportRefusal, OfAHeaderAndOfCellsWithoutOne) {
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

TEST_F(ImportRefusal, OfWhatContradictsTheBank) {
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
    EXPECT_EQ(faultsOf(Sheet(u"1 试卷编号=P-2"_s)), u"题库中试题的编号将超过 32767，不能导入！"_s);
}

TEST_F(ImportRefusal, OfPapersThatContradictEachOther) {
    EXPECT_EQ(faultsOf(Sheet().appendPaper(u"1 测评子类=诚信"_s)).section(u'\n', 0, 0),
              u"第 5 行：［试卷编号］［P-1］已用于第 2 行的［责任心］！"_s);
    Sheet sheet(u"1 子类说明=甲|1 结果说明1=甲"_s);
    sheet.appendPaper(u"1 试卷编号=P-2|1 子类说明=乙|1 结果说明1=乙|1 评价结果2=中等|1 评价结果3=低等"_s);
    EXPECT_EQ(faultsOf(sheet),
              u"第 5 行：评价结果［优秀］的结果说明与同一子类前一试卷的不一致！\n"
              "第 5 行：测评子类［责任心］的试卷共有四种以上的评价结果！\n"
              "第 5 行：［子类说明］与同一子类前一试卷的不一致！"_s);
}

}  // namespace

}  // namespace talvora
