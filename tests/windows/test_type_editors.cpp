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

    PromptScript script_;
};

const QString taken = u"［测评主类］重复，请重新输入！"_s;
const QString childTaken = u"［测评子类］重复，请重新输入！"_s;
const QString quote = u"文本框中不可输入字符［'］！"_s;

TEST_F(TypeEditors, MainTypeIsAddedUntilClosed) {
    frmTypeParent& w = open<frmTypeParent>(QString(), true);
    const std::pair<QString, QString> refused[] = {
        {QString(), u"请先输入［类型名称］！"_s}, {u"a'"_s, quote}, {u"职业素养"_s, taken}};
    for (const auto& [name, words] : refused) {
        retype(w.ui->txtName, name);
        script_.expect(vbOK, words);
        click(w.ui->Command1);
        EXPECT_EQ(focused(), w.ui->txtName);
    }
    // Blanks are text, a description is not stored, and a failure passes without a word.
    for (const auto& [name, failing] : {std::pair(u" 1"_s, 0), std::pair(u"2"_s, 3)}) {
        retype(w.ui->txtName, name);
        retype(w.ui->txtDesc, u"x"_s);
        statementsOf([&] { click(w.ui->Command1); }, failing);
        EXPECT_EQ(w.ui->txtCode->text() + w.ui->txtName->text() + w.ui->txtDesc->text(), u"003"_s);
        EXPECT_EQ(focused(), w.ui->txtName);
    }
    EXPECT_EQ(rowsOf(u"select TypeCode, TestingType, Note from TestingType where TypeCode>'002' and len(TypeCode)=3"_s),
              u"003|1|null"_s);
}

TEST_F(TypeEditors, EditOfAMainTypeEmptiesAllElse) {
    cnnPublic.Execute(u"update TestingType set Note='n', Author='a' where TypeCode='001'"_s);
    frmTypeParent& w = open<frmTypeParent>(u"001"_s, false);
    EXPECT_EQ(w.ui->txtDesc->text(), u"n"_s);
    retype(w.ui->txtName, u"责任心"_s);
    script_.expect(vbOK, taken);
    click(w.ui->Command1);
    retype(w.ui->txtName, u"素养"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(focused(), w.ui->txtDesc);
    click(w.ui->Command1);
    EXPECT_FALSE(w.isLoaded());
    EXPECT_EQ(rowsOf(u"select TestingType, Note, Author from TestingType where TypeCode='001'"_s), u"素养||"_s);
}

TEST_F(TypeEditors, SubtypeIsRefusedInOrderAndThenAdded) {
    frmTypeChild& w = open<frmTypeChild>(u"001"_s, true);
    EXPECT_EQ(w.ui->txtTypeCode->text() + w.TypeCodeOf, u"001003001"_s);
    choose(w.ui->cmbType, u"专业能力"_s);
    EXPECT_EQ(w.ui->txtTypeCode->text() + w.TypeCodeOf, u"002003002"_s);
    const QString noWord = u"请输入［测评级别］及其［测评说明］！"_s;
    const struct {
        QString name, word1, word2;
        qsizetype failing;
        QString words;
        QWidget* field;
    } table[] = {
        {QString(), QString(), QString(), 0, u"请先输入［类型名称］！"_s, w.ui->txtTypeName},
        {u"a'"_s, QString(), QString(), 0, noWord, w.ui->cmbResult1},
        {u"a'"_s, u"优"_s, QString(), 0, noWord, w.ui->cmbResult2},
        {u"a'"_s, u"优"_s, u"优"_s, 0, quote, w.ui->txtTypeName},
        {u"沟通"_s, u"优"_s, u"优"_s, 0, childTaken, w.ui->txtTypeName},
        {u"责任心"_s, u"优"_s, u"优'"_s, 0, u"增加失败，请稍后重试！"_s, w.ui->txtTypeName},
        {u"责任心"_s, u"优"_s, u"优"_s, 3, u"增加失败，请稍后重试！"_s, w.ui->txtTypeName},
    };
    for (const auto& row : table) {
        retype(w.ui->txtTypeName, row.name);
        w.ui->cmbResult1->setText(row.word1);
        w.ui->cmbResult2->setText(row.word2);
        script_.expect(vbOK, row.words);
        statementsOf([&] { click(w.ui->Command1); }, row.failing);
        EXPECT_EQ(focused(), row.field) << row.words.toStdString();
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
    EXPECT_EQ(w.ui->txtTypeName->text() + w.ui->cmbResult1->text(), u"职业素养甲"_s);
    EXPECT_EQ(w.ui->txtTypeCode->text() + w.TypeCodeOf, u"001003001"_s);
    EXPECT_EQ(w.ui->dtpWriteDate->text(), u"2010-09-05"_s);
    EXPECT_EQ(w.ui->dtpAuditingDate->date(), QDate::currentDate());
    w.ui->cmbResult2->setText(u"乙"_s);
    retype(w.ui->txtTypeName, u"诚信"_s);
    script_.expect(vbOK, childTaken);
    click(w.ui->Command1);
    retype(w.ui->txtTypeName, u"素养"_s);
    script_.expect(vbOK, u"修改失败，请稍后重试！"_s);
    statementsOf([&] { click(w.ui->Command1); }, 5);
    click(w.ui->Command1);
    EXPECT_FALSE(w.isLoaded());
    EXPECT_EQ(rowsOf(u"select TestingType from TestingType where TypeCode in ('001','001002') order by TypeCode"_s),
              u"素养\n诚信"_s);
}

}  // namespace
}  // namespace talvora::test
