#include "assessment/frmtesting.h"
#include "windows/journey_bank.h"

#include <QLineEdit>

namespace talvora::test {
namespace {

using namespace Qt::StringLiterals;

class Intake : public JourneyTest {
 protected:
    frmTesting& open() {
        frmTesting& w = frmTesting::Default();
        w.Show();
        return w;
    }
};

QStringList items(const ComboBox* list) {
    QStringList texts;
    for (int i = 0; i < list->ListCount(); ++i) {
        texts += u"%1=%2"_s.arg(list->List(i)).arg(list->ItemData(i));
    }
    return texts;
}

TEST_F(Intake, OpensForAnOperator) {
    frmTesting& w = open();
    EXPECT_EQ(w.window()->windowTitle(), u"人员测评"_s);
    EXPECT_EQ(focused(), w.ui->txtID);
    EXPECT_EQ((std::vector{w.ui->txtID->maxLength(), w.ui->txtName->maxLength(), w.ui->txtAge->maxLength(),
                           w.ui->cmbPosition->lineEdit()->maxLength(), w.ui->cmbSalary->lineEdit()->maxLength()}),
              (std::vector{20, 20, 2, 50, 50}));
    EXPECT_EQ(w.ui->txtID->toolTip(), u"淡黄背景表示必填项"_s);
    EXPECT_EQ(items(w.ui->cmbTypeName),
              (QStringList{u"职业素养=1001"_s, u"|-责任心=2001001"_s, u"|-诚信=2001002"_s, u"专业能力=1002"_s,
                           u"|-逻辑推理=2002001"_s, u"|-沟通=2002002"_s, u"素质模型=3000"_s, u"|-销售经理模型=41"_s}));
    EXPECT_EQ(w.ui->cmbTypeName->ListIndex(), 1);
    EXPECT_EQ(w.ui->cmbExamNum->text(), u"ZR-1"_s);
    EXPECT_EQ(items(w.ui->cmbPosition), (QStringList{u"总经理=0"_s, u"|-销售经理=0"_s, u"||-销售专员=0"_s}));
    EXPECT_TRUE(w.ui->cmbPosition->text().isEmpty());
    EXPECT_EQ(w.ui->cmbSalary->text(), u"2000~4000"_s);
    EXPECT_EQ(w.ui->cmbSex->text() + w.ui->cmbEducation->text(), u"男博士"_s);
    EXPECT_EQ(w.ui->SSTab1->tabText(0), u"    测评    "_s);
    EXPECT_EQ(w.ui->SSTab1->tabText(1), u"  测评结果  "_s);
    EXPECT_TRUE(w.ui->cmdStart->isEnabled());
    EXPECT_FALSE(w.ui->cmdSubmit->isEnabled() || w.ui->cmdNew->isVisible());
    EXPECT_EQ(w.Timer1->interval(), 60000);
}

TEST_F(Intake, ChecksInTheirOrder) {
    frmTesting& w = open();
    const QString noType = u"请选择一种具体的［测评类型］进行测评！"_s;
    const QString noPaper = u"所选测评类型尚未设置测评试卷，请换一种测评类型！"_s;
    const QString quote = u"文本框中不可输入字符［'］！"_s;
    QWidget* const fields[] = {w.ui->txtID, w.ui->txtName, w.ui->txtAge, w.ui->cmbSalary};
    const struct {
        QString typed;  // into these fields
        QString typeName;
        QString words;
        QWidget* field;
    } table[] = {
        {u"  ||x|?"_s, u"素质模型"_s, u"［身份证号］不能为空！"_s, w.ui->txtID},
        {u"1|  |x|?"_s, u"素质模型"_s, u"［姓名］不能为空！"_s, w.ui->txtName},
        {u"1|a|x|?"_s, u"素质模型"_s, u"［年龄］中只能输入数字！"_s, w.ui->txtAge},
        {u"1|a'|30|4０00"_s, u"素质模型"_s, u"［薪资范围］输入不合法，请重新输入！"_s, w.ui->cmbSalary},
        {u"1|a||"_s, u"素质模型"_s, noType, w.ui->cmbTypeName},
        {u"1|a|5|~"_s, u"专业能力"_s, noType, w.ui->cmbTypeName},
        {u"1|a'||1~2~3"_s, u"|-诚信"_s, noPaper, w.ui->cmbExamNum},
        {u"1'|a||"_s, u"|-沟通"_s, quote, w.ui->txtName},
        {u"1|a'||"_s, u"|-销售经理模型"_s, quote, w.ui->txtName},
    };
    for (const auto& row : table) {
        PromptScript script;
        const QStringList texts = row.typed.split(u'|');
        for (int i = 0; i < 4; ++i) {
            retype(fields[i], texts[i]);
        }
        choose(w.ui->cmbTypeName, row.typeName);
        script.expect(vbOK, row.words);
        click(w.ui->cmdStart);
        EXPECT_EQ(script.last().style, vbExclamation) << row.words.toStdString();
        EXPECT_EQ(focused(), row.field) << row.words.toStdString();
        EXPECT_TRUE(w.ui->cmdStart->isEnabled()) << row.words.toStdString();
        EXPECT_EQ(w.ui->fg1->Rows(), 1) << row.words.toStdString();
    }
}

TEST_F(Intake, PaperListFollowsTheTest) {
    frmTesting& w = open();
    choose(w.ui->cmbTypeName, u"|-逻辑推理"_s);
    EXPECT_EQ(items(w.ui->cmbExamNum), (QStringList{u"LJ-1=0"_s, u"LJ-2=0"_s}));
    EXPECT_GE(w.ui->cmbExamNum->ListIndex(), 0) << "one is drawn";
    choose(w.ui->cmbExamNum, u"LJ-2"_s);
    type(w.ui->txtID, u"1"_s);
    type(w.ui->txtName, u"a"_s);
    click(w.ui->cmdStart);
    EXPECT_TRUE(w.ui->fg1->TextMatrix(2, 1).startsWith(u"LJ-2"_s));
    click(w.ui->cmdClose);
    EXPECT_FALSE(w.isLoaded());
}

TEST_F(Intake, PositionsBringTheirModels) {
    setOption(u"blnPostRelational"_s, u"Y"_s);
    frmTesting& w = open();
    EXPECT_TRUE(w.ui->cmbPostName->isVisible());
    EXPECT_FALSE(w.ui->cmbPosition->isVisible());
    EXPECT_EQ(w.ui->cmbTypeName->ListIndex(), -1);
    EXPECT_EQ(w.ui->cmbTypeName->ListCount(), 6) << "subtypes can be chosen until a position is";

    PromptScript script;
    type(w.ui->txtID, u"1"_s);
    type(w.ui->txtName, u"a"_s);
    const struct {
        QString position;
        QStringList tests;
        int chosen;
    } table[] = {
        {u"总经理"_s, {u"素质模型=3000"_s}, -1},
        {u"|-销售经理"_s, {u"素质模型=3000"_s, u"|-销售经理模型=41"_s}, 1},
        {u"||-销售专员"_s, {u"素质模型=3000"_s}, -1},
    };
    for (const auto& row : table) {
        choose(w.ui->cmbPostName, row.position);
        EXPECT_EQ(items(w.ui->cmbTypeName), row.tests);
        EXPECT_EQ(w.ui->cmbTypeName->ListIndex(), row.chosen);
    }
    script.expect(vbOK, u"请选择一种具体的［测评类型］进行测评！"_s);
    click(w.ui->cmdStart);
    // A first-level position loses its first character.
    for (const auto& [name, tests] : {std::pair(u"总经理"_s, 1), std::pair(u"经理"_s, 2)}) {
        cnnPublic.Execute(u"update TestingSolution set PostName='"_s + name + u"'"_s);
        choose(w.ui->cmbPostName, u"|-销售经理"_s);
        choose(w.ui->cmbPostName, u"总经理"_s);
        EXPECT_EQ(w.ui->cmbTypeName->ListCount(), tests);
    }
}

}  // namespace
}  // namespace talvora::test
