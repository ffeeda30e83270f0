#include "testbank/frmtypechild.h"
#include "testbank/frmtypeparent.h"
#include "windows/journey_bank.h"

namespace talvora::test {
namespace {

using namespace Qt::StringLiterals;

class TypeEditors : public JourneyTest {
 protected:
    template <class F>
    F& open(const QString& code, bool add) {
        F& w = F::Default();
        w.AddMode = add;
        w.TypeCodeOf = code;
        w.Show();
        return w;
    }
};

const QString taken = u"［测评主类］重复，请重新输入！"_s, childTaken = u"［测评子类］重复，请重新输入！"_s;
const QString noName = u"请先输入［类型名称］！"_s, quote = u"文本框中不可输入字符［'］！"_s;

TEST_F(TypeEditors, MainTypesAreAddedUntilClosedAndAnEditEmptiesAllElse) {
    frmTypeParent& w = open<frmTypeParent>({}, true);
    for (const auto& [name, words] : {std::pair(u""_s, noName), {u"a'"_s, quote}, {u"职业素养"_s, taken}}) {
        retype(w.ui->txtName, name);
        refuses(w.ui->Command1, words, w.ui->txtName);
    }
    // Blanks are text, a description is not stored, and a failure passes without a word.
    for (const auto& [name, failing] : {std::pair(u" 1"_s, 0), {u"2"_s, 3}}) {
        retype(w.ui->txtName, name);
        press(Qt::Key_Return);
        type(focused(), u"x"_s);
        statementsOf([&] { click(w.ui->Command1); }, failing);
        EXPECT_EQ(w.ui->txtCode->text() + w.ui->txtName->text() + w.ui->txtDesc->text(), u"003"_s);
        EXPECT_EQ(focused(), w.ui->txtName);
    }
    press(Qt::Key_Escape);
    cnnPublic.Execute(u"update TestingType set Note='n', Author='a' where TypeCode='001'"_s);
    open<frmTypeParent>(u"001"_s, false);
    EXPECT_EQ(w.ui->txtDesc->text(), u"n"_s);
    retype(w.ui->txtName, u"责任心"_s);
    refuses(w.ui->Command1, taken, w.ui->txtName);
    retype(w.ui->txtName, u"素养"_s);
    click(w.ui->Command1);
    EXPECT_FALSE(w.isLoaded());
    EXPECT_EQ(rowsOf(u"select TypeCode, TestingType, Note, Author from TestingType where len(TypeCode)=3"_s),
              u"001|素养||\n002|专业能力|null|null\n003|1|null|null"_s);
}

TEST_F(TypeEditors, SubtypeIsRefusedInOrderAndThenAdded) {
    frmTypeChild& w = open<frmTypeChild>(u"001"_s, true);
    EXPECT_EQ(w.ui->txtTypeCode->text() + w.TypeCodeOf, u"001003001"_s);
    choose(w.ui->cmbType, u"专业能力"_s);
    EXPECT_EQ(w.ui->txtTypeCode->text() + w.TypeCodeOf, u"002003002"_s);
    const QString noWord = u"请输入［测评级别］及其［测评说明］！"_s;
    const QString failed = u"增加失败，请稍后重试！"_s;
    const struct {
        QString name, word1, word2, words;
        QWidget* field;
        qsizetype failing = 0;
    } table[] = {
        {{}, {}, {}, noName, w.ui->txtTypeName},
        {u"a'"_s, {}, {}, noWord, w.ui->cmbResult1},
        {u"a'"_s, u"优"_s, {}, noWord, w.ui->cmbResult2},
        {u"a'"_s, u"优"_s, u"优"_s, quote, w.ui->txtTypeName},
        {u"沟通"_s, u"优"_s, u"优"_s, childTaken, w.ui->txtTypeName},
        {u"责任心"_s, u"优"_s, u"优'"_s, failed, w.ui->txtTypeName},
        {u"责任心"_s, u"优"_s, u"优"_s, failed, w.ui->txtTypeName, 3},
    };
    for (const auto& row : table) {
        retype(w.ui->txtTypeName, row.name);
        w.ui->cmbResult1->setText(row.word1);
        w.ui->cmbResult2->setText(row.word2);
        statementsOf([&] { refuses(w.ui->Command1, row.words, row.field); }, row.failing);
    }
    // The note keeps to its limit, what came last gives way, and Enter leaves it.
    w.ui->txtNote->setText(QString(499, u'n'));
    type(w.ui->txtNote, u"xy"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(focused(), w.ui->Command1);
    click(w.ui->Command1);
    EXPECT_FALSE(w.isLoaded());
    EXPECT_EQ(rowsOf(u"select TypeCode, TestingResult1, TestingResult4, len(Note), left(Note, 2) from TestingType "
                     "where TestingType='责任心' and left(TypeCode,3)='002'"_s),
              u"002003|优||500|xn"_s);
}

TEST_F(TypeEditors, EditOfASubtypeEndsAtItsMainType) {
    cnnPublic.Execute(u"update TestingType set TestingResult1='甲', WriteDate='2010-9-5' where TypeCode='001'"_s);
    frmTypeChild& w = open<frmTypeChild>(u"001002"_s, false);
    EXPECT_EQ(w.ui->txtTypeName->text() + w.ui->cmbResult1->text() + w.ui->dtpWriteDate->text(),
              u"职业素养甲2010-09-05"_s);
    EXPECT_EQ(w.ui->txtTypeCode->text() + w.TypeCodeOf, u"001003001"_s);
    w.ui->cmbResult2->setText(u"乙"_s);
    retype(w.ui->txtTypeName, u"诚信"_s);
    refuses(w.ui->Command1, childTaken, w.ui->txtTypeName);
    retype(w.ui->txtTypeName, u"素养"_s);
    statementsOf([&] { refuses(w.ui->Command1, u"修改失败，请稍后重试！"_s, w.ui->txtTypeName); }, 5);
    click(w.ui->Command1);
    EXPECT_FALSE(w.isLoaded());
    EXPECT_EQ(rowsOf(u"select TestingType from TestingType where TypeCode in ('001','001002') order by TypeCode"_s),
              u"素养\n诚信"_s);
}

}  // namespace
}  // namespace talvora::test
