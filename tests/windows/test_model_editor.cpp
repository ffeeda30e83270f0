#include "models/frmdimension.h"
#include "models/frmelements.h"
#include "models/frmsolution.h"
#include "models/importance.h"
#include "models/solution_grid.h"
#include "testbank/ctestingtype.h"
#include "toolkit/toolbar.h"
#include "windows/journey_bank.h"

#include <QTest>
#include <QToolButton>

#include <tuple>

namespace talvora::test {
namespace {

using namespace Qt::StringLiterals;

const QString allRows =
    u"select h.SolutionID, SolutionName, PostName, Version, d.TypeCode, d.Score, d.Weighing from TestingSolution h, "
    "TestingSolutionDetail d where h.SolutionID = d.SolutionID order by h.SolutionID, d.TypeCode"_s;

// Each row's dimension weight, element and element weight.
QString weights(const FlexGrid* fg) {
    QStringList rows;
    for (int row = solution::FirstRow; row < fg->Rows(); ++row) {
        rows += fg->TextMatrix(row, 2) + u' ' + fg->TextMatrix(row, 3).left(6) + u' ' + fg->TextMatrix(row, 5);
    }
    return rows.join(u'|');
}

class ModelEditor : public JourneyTest {
 protected:
    frmSolution& open(bool addMode) {
        auto& w = frmSolution::Default();
        w.Unload();
        w.AddMode = addMode;
        w.SolutionIDOf = 1;
        w.Show();
        return w;
    }
};

template <class Dialog>
void fill(Dialog& dialog, ComboBox* list, const QString& entry, int importance) {
    choose(list, entry);
    choose(dialog.ui->cmbImportant, importanceEntries().at(importance));
    click(dialog.ui->Command1);
}

// Presses the button, after a click into the row if there is one, and answers what it asks.
void command(frmSolution& w, const QString& key, int row, const QString& choice, int importance) {
    if (row > 0) {
        clickCell(w.ui->fg2, row, key.endsWith(u'1') ? solution::DimensionCol : solution::ElementCol);
    }
    PromptScript script;
    if (key.startsWith("del"_L1)) {
        script.expect(vbYes, choice);
    } else if (key.endsWith(u'1')) {
        whenModal<frmDimension>([=](frmDimension& d) { fill(d, d.ui->cmbType, choice, importance); });
    } else {
        whenModal<frmElements>([=](frmElements& d) {
            if (key == "add2"_L1) {
                const int dimension = d.ui->cmbType->findText(choice.left(3), Qt::MatchStartsWith);
                choose(d.ui->cmbType, d.ui->cmbType->List(dimension));
            }
            fill(d, d.ui->cmbElements, choice, importance);
        });
    }
    click(w.ui->Toolbar1->button(key));
}

TEST_F(ModelEditor, WeighsWhatEachCommandIsToWeighAndSavesTheRestStale) {
    ASSERT_EQ(cTestingType().AddNew(u"parent"_s, {}, u"身心"_s), Status::Done);
    ASSERT_EQ(cTestingType().AddNew(u"child"_s, u"003"_s, u"体能"_s), Status::Done);
    frmSolution& w = open(true);
    const std::tuple<QString, int, QString, int, QString> steps[] = {
        {u"add1"_s, 0, u"001 职业素养"_s, 1, u"100.%  "_s},
        {u"add1"_s, 0, u"002 专业能力"_s, 3, u"31.82%  |68.18%  "_s},
        {u"add2"_s, 0, u"001001 责任心"_s, 0, u"31.82% 001001 31.82%|68.18%  "_s},
        {u"add2"_s, 0, u"002001 逻辑推理"_s, 0, u"31.82% 001001 31.82%|68.18% 002001 68.18%"_s},
        {u"add2"_s, 0, u"001002 诚信"_s, 1, u"31.82% 001001 9.55%|31.82% 001002 22.27%|68.18% 002001 68.18%"_s},
        {u"add1"_s, 0, u"003 身心"_s, 2, u"21.21% 001001 9.55%|21.21% 001002 22.27%|45.45% 002001 68.18%|33.33%  "_s},
        {u"edit1"_s, 2, u"001 职业素养"_s, 0,
         u"10.34% 001001 3.1%|10.34% 001002 7.24%|51.72% 002001 68.18%|37.93%  "_s},
        {u"edit2"_s, 2, u"001002 诚信"_s, 3,
         u"10.34% 001002 7.05%|10.34% 001002 3.29%|51.72% 002001 68.18%|37.93%  "_s},
        {u"del2"_s, 3, u"您确定要删除［001002 诚信］吗？"_s, 0,
         u"10.34% 001002 10.34%|51.72% 002001 68.18%|37.93%  "_s},
        {u"del2"_s, 2, u"您确定要删除［001002 诚信］吗？"_s, 0, u"51.72% 002001 68.18%|37.93%  "_s},
        {u"del1"_s, 3, u"您确定要删除［003 身心］吗！"_s, 0, u"100.% 002001 100.%"_s},
        {u"add1"_s, 0, u"003 身心"_s, 3, u"50.% 002001 100.%|50.%  "_s},
        {u"add2"_s, 0, u"003001 体能"_s, 1, u"50.% 002001 100.%|50.% 003001 50.%"_s},
    };
    for (const auto& [key, row, choice, importance, expected] : steps) {
        command(w, key, row, choice, importance);
        EXPECT_TRUE(!key.startsWith("add"_L1) || w.ui->fg2->TextMatrix(w.ui->fg2->Row(), w.ui->fg2->Col()) == choice);
        ASSERT_EQ(weights(w.ui->fg2), expected) << key.toStdString();
    }
    type(w.ui->txtSolution, u"新模型"_s);
    choose(w.ui->cmbPostName, u"||-销售专员"_s);
    click(w.ui->Command1);
    EXPECT_FALSE(w.isLoaded());
    EXPECT_EQ(rowsOf(allRows).section(u'\n', 4),
              u"2|新模型|销售专员|1.00|002|7.5|0.5\n2|新模型|销售专员|1.00|002001|1.5|1\n"
              "2|新模型|销售专员|1.00|003|7.5|0.5\n2|新模型|销售专员|1.00|003001|3.5|0.5"_s);
}

TEST_F(ModelEditor, DeletingADimensionPassesOverTheRowThatMovesUp) {
    const std::pair<QString, QString> cases[] = {{u"DA"_s, u"A"_s},      {u"AD"_s, u"A"_s},       {u"DD"_s, {}},
                                                 {u"ADD"_s, u"A"_s},     {u"ADDD"_s, u"A"_s},     {u"DDA"_s, u"DA"_s},
                                                 {u"DDDAB"_s, u"DAB"_s}, {u"ADDDDB"_s, u"ADDB"_s}};
    for (const auto& [before, after] : cases) {
        FlexGrid fg;
        solution::setUpGrid(fg);
        for (const QChar dimension : before) {
            fg.AddItem(QString(3, dimension) + u" "_s);
        }
        solution::removeDimension(fg, u"DDD"_s);
        QString left;
        for (int row = solution::FirstRow; row < fg.Rows(); ++row) {
            left += fg.TextMatrix(row, 0).left(1);
        }
        EXPECT_EQ(left, after) << before.toStdString();
    }
}

TEST_F(ModelEditor, RefusesInOrder) {
    frmSolution& w = open(true);
    const auto addLine = [&](const QString& choice) {
        command(w, choice.indexOf(u' ') > 3 ? u"add2"_s : u"add1"_s, 0, choice, 0);
    };
    const std::tuple<QString, QWidget*, std::function<void()>> steps[] = {
        {u"［素质模型］不能为空！"_s, w.ui->txtSolution, [&] { retype(w.ui->txtSolution, u"销售经理模型"_s); }},
        {u"［对应职位］不能为空！"_s, w.ui->cmbPostName, [&] { choose(w.ui->cmbPostName, u"总经理"_s); }},
        {u"请设置［测评维度］及相应的［测评要素］！"_s, w.ui->fg2,
         [&] {
             addLine(u"001 职业素养"_s);
             addLine(u"001001 责任心"_s);
             addLine(u"002 专业能力"_s);
         }},
        {u"有某些［测评要素］的分数及权重还没有设置！"_s, w.ui->fg2,
         [&] {
             EXPECT_TRUE(w.ui->fg2->Row() == 3 && w.ui->fg2->Col() == 3);
             addLine(u"002001 逻辑推理"_s);
             type(w.ui->txtNote, u"'"_s);
         }},
        {u"文本框中不可输入字符［'］！"_s, w.ui->txtSolution, [&] { retype(w.ui->txtNote, u"x"_s); }},
        {u"［素质模型］重复，请重新输入！"_s, w.ui->txtSolution, [&] { retype(w.ui->txtSolution, u"甲"_s); }},
    };
    type(w.ui->txtSolution, u"  "_s);
    for (const auto& [message, focus, mend] : steps) {
        PromptScript script;
        script.expect(vbOK, message);
        click(w.ui->Command1);
        ASSERT_TRUE(w.isLoaded());
        EXPECT_EQ(w.window()->focusWidget(), focus) << message.toStdString();
        mend();
    }
    click(w.ui->Command1);
    EXPECT_FALSE(w.isLoaded());
}

TEST_F(ModelEditor, LineCommandsRefuseWithoutTheirRow) {
    frmSolution& w = open(true);
    EXPECT_FALSE(w.ui->Toolbar1->button(u"edit1"_s)->isEnabled() || w.ui->Toolbar1->button(u"del2"_s)->isEnabled());
    const auto refuses = [&](const QString& key, const QString& message) {
        PromptScript script;
        script.expect(vbOK, message);
        click(w.ui->Toolbar1->button(key));
    };
    refuses(u"add2"_s, u"请先增加［测评维度］！"_s);
    open(false);
    EXPECT_EQ(weights(w.ui->fg2), u"50.% 001001 50.%|25.% 002001 25.%"_s);
    refuses(u"add1"_s, u"已经增加了所有的维度，不可再行增加！"_s);
    EXPECT_EQ(w.ui->fg2->Row(), 2);
    w.ui->fg2->Select(0, 0);
    refuses(u"edit1"_s, u"请选择要修改的维度！"_s);
    refuses(u"edit2"_s, u"请选择要修改的维度！"_s);
    refuses(u"del2"_s, u"请选择拟删除的测评要素！"_s);
    clickCell(w.ui->fg2, 2, 2);
    EXPECT_FALSE(w.ui->Toolbar1->button(u"del2"_s)->isEnabled());
    clickCell(w.ui->fg2, 2, 3);
    EXPECT_FALSE(w.ui->Toolbar1->button(u"del1"_s)->isEnabled());
    whenModal<frmDimension>([](frmDimension& d) { click(d.ui->Command2); });
    QTest::mouseDClick(w.ui->fg2->viewport(), Qt::LeftButton, {}, w.ui->fg2->CellRect(2, 0).center());
    cnnPublic.Execute(u"delete from TestingType"_s);
    whenModal<frmDimension>([](frmDimension& d) {
        EXPECT_EQ(d.ui->cmbType->ListCount(), 0);
        press(Qt::Key_Escape);
    });
    click(w.ui->Toolbar1->button(u"add1"_s));
    EXPECT_EQ(w.ui->fg2->Rows(), 4);
}

TEST_F(ModelEditor, StepsTheVersion) {
    frmSolution& w = open(true);
    EXPECT_EQ(w.ui->txtVersion->text(), u"1.00"_s);
    const std::tuple<QString, Qt::Key, QString> cases[] = {
        {u"1.00"_s, Qt::Key_Down, u"1.00"_s}, {u"1.00"_s, Qt::Key_Up, u"1.01"_s},   {u"1.09"_s, Qt::Key_Up, u"1.1"_s},
        {u"1.99"_s, Qt::Key_Up, u"2.00"_s},   {u"1.01"_s, Qt::Key_Down, u"1.00"_s}, {u"x"_s, Qt::Key_Up, u"0.01"_s}};
    for (const auto& [version, key, stepped] : cases) {
        retype(w.ui->txtVersion, version);
        press(key);
        EXPECT_EQ(w.ui->txtVersion->text(), stepped);
    }
}

TEST_F(ModelEditor, EnterPassesOverTheToolbar) {
    frmSolution& w = open(false);
    w.ui->txtNote->setFocus();
    for (QWidget* next : {static_cast<QWidget*>(w.ui->fg2), static_cast<QWidget*>(w.ui->Command1)}) {
        press(Qt::Key_Return);
        EXPECT_EQ(focused(), next);
    }
}

TEST_F(ModelEditor, FindsThePositionByItsEndAndCutsItAtTheMark) {
    cnnPublic.Execute(u"update Position set PostName = '副|-总经理' where PostName = '总经理'"_s);
    cnnPublic.Execute(u"update TestingSolution set PostName = '总经理', WriteDate = '2010/9/5'"_s);
    frmSolution& w = open(false);
    EXPECT_EQ(w.ui->cmbPostName->text(), u"副|-总经理"_s);
    EXPECT_EQ(w.ui->dtpWriteDate->date(), QDate(2010, 9, 5));
    EXPECT_EQ(w.ui->dtpAuditingDate->date(), QDate::currentDate());
    click(w.ui->Command1);
    EXPECT_EQ(rowsOf(u"select PostName, WriteDate from TestingSolution"_s), u"总经理|2010-09-05"_s);
}

TEST_F(ModelEditor, ClosesWithoutAWordWhenSavingFails) {
    const QString before = rowsOf(allRows);
    for (const bool addMode : {true, false}) {
        frmSolution& w = open(addMode);
        if (addMode) {
            command(w, u"add1"_s, 0, u"001 职业素养"_s, 0);
            command(w, u"add2"_s, 0, u"001001 责任心"_s, 0);
            choose(w.ui->cmbPostName, u"总经理"_s);
        }
        retype(w.ui->txtSolution, u"乙"_s);
        PromptScript silent;
        // The third statement writes the head.
        statementsOf([&] { click(w.ui->Command1); }, 3);
        EXPECT_FALSE(w.isLoaded());
        EXPECT_EQ(rowsOf(allRows), before) << "adding rolls back, and an update replaces the lines by the same";
    }
}

}  // namespace
}  // namespace talvora::test
