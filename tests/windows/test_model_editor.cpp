#include "models/frmdimension.h"
#include "models/frmelements.h"
#include "models/frmsolution.h"
#include "models/importance.h"
#include "models/solution_grid.h"
#include "toolkit/controls/toolbar.h"
#include "windows/journey_bank.h"

#include <QHeaderView>
#include <QTest>
#include <QToolButton>

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

// Presses the button, after a click into the row if there is one, and answers what it asks.
void command(frmSolution& w, const QString& key, int row, const QString& choice, int importance) {
    if (row > 0) {
        clickCell(w.ui->fg2, row, key.endsWith(u'1') ? solution::DimensionCol : solution::ElementCol);
    }
    const auto fill = [=](auto& dialog, ComboBox* list) {
        choose(list, choice);
        choose(dialog.ui->cmbImportant, importanceEntries().at(importance));
        click(dialog.ui->Command1);
    };
    PromptScript script;
    if (key.startsWith("del"_L1)) {
        script.expect(vbYes, choice);
    } else if (key.endsWith(u'1')) {
        whenModal<frmDimension>([=](frmDimension& d) { fill(d, d.ui->cmbType); });
    } else {
        whenModal<frmElements>([=](frmElements& d) {
            if (key == "add2"_L1) {
                d.ui->cmbType->setListIndex(d.ui->cmbType->findText(choice.left(3), Qt::MatchStartsWith));
            }
            fill(d, d.ui->cmbElements);
        });
    }
    click(w.ui->Toolbar1->button(key));
}

TEST_F(ModelEditor, WeighsWhatEachCommandIsToWeighAndSavesTheRestStale) {
    cnnPublic.Execute(u"insert into TestingType (TypeCode, TestingType) values ('003', '身心'), ('003001', '体能')"_s);
    frmSolution& w = open(true);
    const QString others = u"|51.72% 002001 68.18%|37.93%  "_s;
    const std::tuple<QString, int, QString, int, QString> steps[] = {
        {u"add1"_s, 0, u"001 职业素养"_s, 1, u"100.%  "_s},
        {u"add1"_s, 0, u"002 专业能力"_s, 3, u"31.82%  |68.18%  "_s},
        {u"add2"_s, 0, u"001001 责任心"_s, 0, u"31.82% 001001 31.82%|68.18%  "_s},
        {u"add2"_s, 0, u"002001 逻辑推理"_s, 0, u"31.82% 001001 31.82%|68.18% 002001 68.18%"_s},
        {u"add2"_s, 0, u"001002 诚信"_s, 1, u"31.82% 001001 9.55%|31.82% 001002 22.27%|68.18% 002001 68.18%"_s},
        {u"add1"_s, 0, u"003 身心"_s, 2, u"21.21% 001001 9.55%|21.21% 001002 22.27%|45.45% 002001 68.18%|33.33%  "_s},
        {u"edit1"_s, 2, u"001 职业素养"_s, 0, u"10.34% 001001 3.1%|10.34% 001002 7.24%"_s + others},
        {u"edit2"_s, 2, u"001002 诚信"_s, 3, u"10.34% 001002 7.05%|10.34% 001002 3.29%"_s + others},
        {u"del2"_s, 3, u"您确定要删除［001002 诚信］吗？"_s, 0, u"10.34% 001002 10.34%"_s + others},
        {u"del2"_s, 2, u"您确定要删除［001002 诚信］吗？"_s, 0, u"51.72% 002001 68.18%|37.93%  "_s},
        {u"del1"_s, 3, u"您确定要删除［003 身心］吗！"_s, 0, u"100.% 002001 100.%"_s},
        {u"add1"_s, 0, u"003 身心"_s, 3, u"50.% 002001 100.%|50.%  "_s},
        {u"add2"_s, 0, u"003001 体能"_s, 1, u"50.% 002001 100.%|50.% 003001 50.%"_s},
    };
    for (const auto& [key, row, choice, importance, expected] : steps) {
        command(w, key, row, choice, importance);
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
    const std::pair<QString, QString> cases[] = {{u"AD"_s, u"A"_s},        {u"DD"_s, {}},
                                                 {u"ADDD"_s, u"A"_s},      {u"DDDAB"_s, u"DAB"_s},
                                                 {u"ADDDDB"_s, u"ADDB"_s}, {u"ADDDD"_s, u"AD"_s}};
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
    type(w.ui->txtSolution, u"  "_s);
    refuses(w.ui->Command1, u"［素质模型］不能为空！"_s, w.ui->txtSolution);
    retype(w.ui->txtSolution, u"销售经理模型"_s);
    refuses(w.ui->Command1, u"［对应职位］不能为空！"_s, w.ui->cmbPostName);
    choose(w.ui->cmbPostName, u"总经理"_s);
    refuses(w.ui->Command1, u"请设置［测评维度］及相应的［测评要素］！"_s, w.ui->fg2);
    command(w, u"add1"_s, 0, u"001 职业素养"_s, 0);
    command(w, u"add2"_s, 0, u"001001 责任心"_s, 0);
    command(w, u"add1"_s, 0, u"002 专业能力"_s, 0);
    refuses(w.ui->Command1, u"有某些［测评要素］的分数及权重还没有设置！"_s, w.ui->fg2);
    EXPECT_TRUE(w.ui->fg2->Row() == 3 && w.ui->fg2->Col() == 3);
    command(w, u"add2"_s, 0, u"002001 逻辑推理"_s, 0);
    type(w.ui->txtNote, u"'"_s);
    refuses(w.ui->Command1, u"文本框中不可输入字符［'］！"_s, w.ui->txtSolution);
    retype(w.ui->txtNote, u"x"_s);
    refuses(w.ui->Command1, u"［素质模型］重复，请重新输入！"_s, w.ui->txtSolution);
    retype(w.ui->txtSolution, u"甲"_s);
    click(w.ui->Command1);
    EXPECT_FALSE(w.isLoaded());
}

TEST_F(ModelEditor, LineCommandsRefuseWithoutTheirRow) {
    frmSolution& w = open(true);
    EXPECT_FALSE(w.ui->Toolbar1->button(u"edit1"_s)->isEnabled());
    const auto refused = [&](const QString& key, const QString& message) {
        PromptScript script;
        script.expect(vbOK, message);
        click(w.ui->Toolbar1->button(key));
    };
    refused(u"add2"_s, u"请先增加［测评维度］！"_s);
    open(false);
    EXPECT_EQ(weights(w.ui->fg2), u"50.% 001001 50.%|25.% 002001 25.%"_s);
    refused(u"add1"_s, u"已经增加了所有的维度，不可再行增加！"_s);
    clickCell(w.ui->fg2, 2, 3);
    w.ui->fg2->Select(0, 0);
    refused(u"edit2"_s, u"请选择要修改的维度！"_s);
    refused(u"del2"_s, u"请选择拟删除的测评要素！"_s);
    for (const auto& [col, off] : {std::pair(2, u"del2"_s), {3, u"del1"_s}}) {
        clickCell(w.ui->fg2, 2, col);
        EXPECT_FALSE(w.ui->Toolbar1->button(off)->isEnabled());
    }
    whenModal<frmDimension>([](frmDimension&) { press(Qt::Key_Escape); });
    QTest::mouseDClick(w.ui->fg2->viewport(), Qt::LeftButton, {}, w.ui->fg2->CellRect(2, 0).center());
    EXPECT_EQ(w.ui->fg2->Rows(), 4);
}

TEST_F(ModelEditor, CursorAndButtonsStayWhereTheUserLeftThem) {
    cnnPublic.Execute(u"insert into TestingType (TypeCode, TestingType) values ('003', '身心'), ('003001', '体能')"_s);
    frmSolution& w = open(true);
    const auto state = [&] {
        const auto usable = [&](const QString& key) { return w.ui->Toolbar1->button(key)->isEnabled() ? u'+' : u'-'; };
        return u"%1,%2 "_s.arg(w.ui->fg2->Row()).arg(w.ui->fg2->Col()) + usable(u"edit1"_s) + usable(u"del1"_s) +
               usable(u"edit2"_s) + usable(u"del2"_s);
    };
    EXPECT_EQ(state(), u"-1,-1 ----"_s);
    command(w, u"add1"_s, 0, u"001 职业素养"_s, 0);
    EXPECT_EQ(state(), u"2,0 ++--"_s) << "the first line";
    command(w, u"add1"_s, 0, u"003 身心"_s, 0);
    command(w, u"add2"_s, 0, u"001001 责任心"_s, 0);
    EXPECT_EQ(state(), u"2,0 +++-"_s);
    clickCell(w.ui->fg2, 3, 3);
    QTest::mouseClick(w.ui->fg2->horizontalHeader()->viewport(), Qt::LeftButton, {}, {30, 8});
    EXPECT_EQ(state(), u"3,3 +-++"_s) << "a title leaves all as it is";
    // A line that comes in above moves the texts down under the cursor.
    command(w, u"add2"_s, 0, u"001002 诚信"_s, 0);
    EXPECT_EQ(state(), u"3,3 +-++"_s);
    EXPECT_EQ(weights(w.ui->fg2), u"50.% 001001 25.%|50.% 001002 25.%|50.%  "_s);
    command(w, u"edit1"_s, 4, u"003 身心"_s, 3);
    command(w, u"del1"_s, 4, u"您确定要删除［003 身心］吗！"_s, 0);
    EXPECT_EQ(state(), u"3,0 +++-"_s);
    // Escape is no way out of half a model.
    type(w.ui->txtSolution, u"新模型"_s);
    press(Qt::Key_Escape);
    EXPECT_TRUE(w.isLoaded());
    open(false);
    EXPECT_EQ(state(), u"2,0 +++-"_s);
}

TEST_F(ModelEditor, EqualScoresOfNeighboursAreDrawnAsOneAndKeepTheirRows) {
    frmSolution& w = open(false);
    FlexGrid& fg = *w.ui->fg2;
    const QImage picture = fg.viewport()->grab().toImage();
    const auto lineBelowFirst = [&](int col) {
        const QRect cell = fg.CellRect(solution::FirstRow, col);
        return picture.pixelColor(cell.left() + 2, cell.bottom()) !=
               picture.pixelColor(cell.left() + 2, cell.top() + 2);
    };
    EXPECT_EQ(fg.TextMatrix(2, solution::DimensionScoreCol), fg.TextMatrix(3, solution::DimensionScoreCol));
    EXPECT_FALSE(lineBelowFirst(solution::DimensionScoreCol));
    EXPECT_TRUE(lineBelowFirst(solution::DimensionWeightCol));
    clickCell(&fg, 3, solution::DimensionScoreCol);
    whenModal<frmDimension>([](frmDimension& dialog) {
        EXPECT_EQ(dialog.ui->cmbType->text(), u"002 专业能力"_s);
        press(Qt::Key_Escape);
    });
    click(w.ui->Toolbar1->button(u"edit1"_s));
}

TEST_F(ModelEditor, KeysStepTheVersionAndPassOverTheToolbar) {
    frmSolution& w = open(true);
    const std::tuple<QString, Qt::Key, QString> cases[] = {
        {u"1.00"_s, Qt::Key_Down, u"1.00"_s}, {u"1.00"_s, Qt::Key_Up, u"1.01"_s},   {u"1.09"_s, Qt::Key_Up, u"1.1"_s},
        {u"1.99"_s, Qt::Key_Up, u"2.00"_s},   {u"1.01"_s, Qt::Key_Down, u"1.00"_s}, {u"x"_s, Qt::Key_Up, u"0.01"_s}};
    for (const auto& [version, key, stepped] : cases) {
        retype(w.ui->txtVersion, version);
        press(key);
        EXPECT_EQ(w.ui->txtVersion->text(), stepped);
    }
    w.ui->txtNote->setFocus();
    press(Qt::Key_Return);  // to the table
    press(Qt::Key_Return);
    EXPECT_EQ(focused(), w.ui->Command1);
}

TEST_F(ModelEditor, FindsThePositionByItsEndAndFailsWithoutAWord) {
    cnnPublic.Execute(u"update Position set PostName = '副|-总经理' where PostName = '总经理'"_s);
    cnnPublic.Execute(u"update TestingSolution set PostName = '总经理', WriteDate = '2010/9/5'"_s);
    const QString before = rowsOf(allRows);
    frmSolution& w = open(false);
    EXPECT_EQ(w.ui->cmbPostName->text(), u"副|-总经理"_s);
    EXPECT_EQ(w.ui->dtpAuditingDate->date(), QDate::currentDate());
    retype(w.ui->txtSolution, u"乙"_s);
    statementsOf([&] { click(w.ui->Command1); }, 3);  // which writes the head
    EXPECT_FALSE(w.isLoaded());
    EXPECT_EQ(rowsOf(allRows), before) << "the lines are replaced by the same";
    open(false);
    click(w.ui->Command1);
    EXPECT_EQ(rowsOf(u"select PostName, WriteDate from TestingSolution"_s), u"总经理|2010-09-05"_s);
}

template <class Dialog>
class ModelLine : public JourneyTest {
 protected:
    /// Opens the dialog on lines of a code, a name and perhaps a score, parted by blanks.
    Dialog& open(bool addMode, const QStringList& lines) {
        auto& dialog = Dialog::Default();
        dialog.Unload();
        dialog.AddMode = addMode;
        dialog.InputLines.Clear();
        for (const QString& line : lines) {
            const QStringList cells = line.split(u' ');
            const auto id = static_cast<qint16>(dialog.InputLines.Count() + 1);
            dialog.InputLines.Add(
                std::make_shared<cDimension>(cDimension{id, 0, cells[0], cells[1], cells.value(2), QString()}));
        }
        dialog.Show();
        return dialog;
    }
};

using Dialogs = ::testing::Types<frmDimension, frmElements>;
TYPED_TEST_SUITE(ModelLine, Dialogs);

TYPED_TEST(ModelLine, AcceptsTheScoresOfTheChosenBand) {
    const QString notANumber = u"［分数］只能为数字型！"_s;
    const QString missing = std::is_same_v<TypeParam, frmElements> ? u"请输入［分数］的值！"_s : notANumber;
    const std::tuple<int, QString, QString> cases[] = {
        {0, u"1|2| 1.5 |15E-1|1,.5|&H2|1.5D0|1.5+|$1.5"_s, {}},
        {2, u"5|6"_s, {}},
        {3, u"7|8"_s, {}},
        {0, u"0.99|2.01"_s, u"［分数］只能在［1~2］之间！"_s},
        {2, u"4.99|6.5"_s, u"［分数］只能在［3~4］之间！"_s},
        {3, u"6.99|8.1"_s, u"［分数］只能在［7~8］之间！"_s},
        {0, u"一|1'|1.5x"_s, notANumber},
        {0, u"| "_s, missing},
    };
    for (const auto& [importance, scores, refusal] : cases) {
        for (const QString& score : scores.split(u'|')) {
            SCOPED_TRACE(score.toStdString());
            auto& dialog = this->open(true, {u"001 旧名"_s});
            choose(dialog.ui->cmbImportant, importanceEntries().at(importance));
            retype(dialog.ui->txtScore, score);
            if (refusal.isEmpty()) {
                click(dialog.ui->Command1);
                EXPECT_EQ(dialog.ResultLines.Item(1)->Score, score);
            } else {
                refuses(dialog.ui->Command1, refusal, dialog.ui->txtScore);
            }
        }
    }
}

TYPED_TEST(ModelLine, WordAndNumberAreOne) {
    auto& dialog = this->open(false, {u"001001 责任心 5.25"_s});
    EXPECT_EQ(dialog.ui->cmbImportant->ListIndex(), 2);
    choose(dialog.ui->cmbImportant, u"D：非常重要（7~8分）"_s);
    EXPECT_EQ(dialog.ui->txtScore->text(), u"7.5"_s);
    // A stored score in no band: the dimension has no word and takes any number, the element shows the first word.
    this->open(false, {u"001001 责任心 2.5"_s});
    EXPECT_EQ(dialog.ui->cmbImportant->ListIndex(), (std::is_same_v<TypeParam, frmElements>) ? 0 : -1);
    EXPECT_EQ(dialog.ui->txtScore->text(), u"2.5"_s);
}

using DimensionDialog = ModelLine<frmDimension>;

TEST_F(DimensionDialog, OffersTypesByNameAndTakesAnyScoreWithoutAWord) {
    auto& dialog = open(true, {u"009 职业素养"_s});
    EXPECT_EQ(dialog.ui->cmbType->ListCount(), 1);
    click(dialog.ui->Command1);
    EXPECT_EQ(dialog.ResultLines.Item(1)->TypeCode + dialog.ResultLines.Item(1)->TypeName, u"002专业能力"_s);
    open(false, {u"001 职业素养 9"_s});
    retype(dialog.ui->txtScore, u"-40"_s);
    click(dialog.ui->Command1);
    EXPECT_EQ(dialog.ResultLines.Item(1)->Score, u"-40"_s);
}

using ElementDialog = ModelLine<frmElements>;

TEST_F(ElementDialog, OffersEachElementOnceAndEditingCanOnlyReplace) {
    auto& dialog = open(true, {u"001 职业素养"_s, u"002 专业能力"_s, u"001001 责任心"_s, u"001002 诚信"_s});
    EXPECT_EQ(dialog.ui->cmbType->ListCount(), 2) << "dimensions alone";
    refuses(dialog.ui->Command1, u"［测评要素］不能为空！"_s, dialog.ui->cmbElements);
    choose(dialog.ui->cmbType, u"002 专业能力"_s);
    EXPECT_EQ(dialog.ui->cmbElements->text(), u"002001 逻辑推理"_s);
    click(dialog.ui->Command2);
    EXPECT_EQ(dialog.ResultLines.Count(), 0);
    open(false, {u"001001 责任心 1"_s});
    EXPECT_EQ(dialog.ui->cmbType->text() + dialog.ui->cmbElements->text(), u"001001 责任心"_s);
    EXPECT_EQ(dialog.ui->cmbElements->ListCount(), 1);
    choose(dialog.ui->cmbElements, u"001002 诚信"_s);
    click(dialog.ui->Command1);
    EXPECT_EQ(dialog.ResultLines.Item(1)->TypeCode + dialog.ResultLines.Item(1)->TypeName, u"001002诚信"_s);
}

}  // namespace
}  // namespace talvora::test
