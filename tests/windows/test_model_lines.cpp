#include "models/frmdimension.h"
#include "models/frmelements.h"
#include "models/importance.h"
#include "windows/journey_bank.h"

#include <tuple>

namespace talvora::test {
namespace {

using namespace Qt::StringLiterals;

std::shared_ptr<cDimension> line(qint16 id, const QString& code, const QString& name, const QString& score) {
    return std::make_shared<cDimension>(cDimension{id, 0, code, name, score, QString()});
}

template <class Dialog>
class ModelLine : public JourneyTest {
 protected:
    Dialog& open(bool addMode, const std::vector<std::shared_ptr<cDimension>>& lines) {
        auto& dialog = Dialog::Default();
        dialog.Unload();
        dialog.AddMode = addMode;
        dialog.InputLines.Clear();
        for (const auto& one : lines) {
            dialog.InputLines.Add(one);
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
        {0, u"1|2| 1.5 |15E-1"_s, {}},
        {1, u"3|4"_s, {}},
        {2, u"5|6"_s, {}},
        {3, u"7|8"_s, {}},
        {0, u"0.99|2.01|-1"_s, u"［分数］只能在［1~2］之间！"_s},
        {1, u"2.5|4.01"_s, u"［分数］只能在［3~4］之间！"_s},
        {2, u"4.99|6.5"_s, u"［分数］只能在［3~4］之间！"_s},
        {3, u"6.99|8.1"_s, u"［分数］只能在［7~8］之间！"_s},
        // The platform takes the last four for numbers, but no statement does.
        {0, u"一|1'|1,.5|&H2|1.5D0|1.5+"_s, notANumber},
        {0, u"| "_s, missing},
    };
    for (const auto& [importance, scores, refusal] : cases) {
        for (const QString& score : scores.split(u'|')) {
            SCOPED_TRACE(score.toStdString());
            auto& dialog = this->open(true, {line(1, u"001"_s, u"旧名"_s, {})});
            choose(dialog.ui->cmbImportant, importanceEntries().at(importance));
            retype(dialog.ui->txtScore, score);
            PromptScript script;
            if (refusal.isEmpty()) {
                click(dialog.ui->Command1);
                EXPECT_FALSE(dialog.isLoaded());
                EXPECT_EQ(dialog.ResultLines.Item(1)->Score, score);
                continue;
            }
            script.expect(vbOK, refusal);
            click(dialog.ui->Command1);
            EXPECT_EQ(focused(), dialog.ui->txtScore);
            EXPECT_EQ(dialog.ui->txtScore->text(), score);
        }
    }
}

TYPED_TEST(ModelLine, WordAndNumberAreOne) {
    auto& dialog = this->open(false, {line(1, u"001001"_s, u"责任心"_s, u"5.25"_s)});
    EXPECT_EQ(dialog.ui->cmbImportant->ListIndex(), 2);
    EXPECT_EQ(dialog.ui->txtScore->text(), u"5.25"_s);
    choose(dialog.ui->cmbImportant, u"D：非常重要（7~8分）"_s);
    EXPECT_EQ(dialog.ui->txtScore->text(), u"7.5"_s);
    // A stored score in no band: the dimension has no word and takes any number, the element shows the first word.
    const bool isElement = std::is_same_v<TypeParam, frmElements>;
    this->open(false, {line(1, u"001001"_s, u"责任心"_s, u"2.5"_s)});
    EXPECT_EQ(dialog.ui->cmbImportant->ListIndex(), isElement ? 0 : -1);
    EXPECT_EQ(dialog.ui->txtScore->text(), u"2.5"_s);
}

using DimensionDialog = ModelLine<frmDimension>;

TEST_F(DimensionDialog, OffersTypesByNameAndTakesAnyScoreWithoutAWord) {
    auto& dialog = open(true, {line(2, u"009"_s, u"职业素养"_s, {})});
    EXPECT_EQ(dialog.ui->cmbType->ListCount(), 1);
    click(dialog.ui->Command1);
    EXPECT_EQ(dialog.ResultLines.Item(1)->TypeCode, u"002"_s);
    EXPECT_EQ(dialog.ResultLines.Item(1)->TypeName, u"专业能力"_s);
    open(false, {line(1, u"001"_s, u"职业素养"_s, u"9"_s)});
    retype(dialog.ui->txtScore, u"-40"_s);
    click(dialog.ui->Command1);
    EXPECT_EQ(dialog.ResultLines.Item(1)->Score, u"-40"_s);
    open(true, {});
    dialog.window()->close();
    EXPECT_EQ(dialog.ResultLines.Count(), 0) << "the line of the opening before";
}

using ElementDialog = ModelLine<frmElements>;

TEST_F(ElementDialog, EditingCanOnlyReplace) {
    auto& dialog = open(false, {line(1002, u"001001"_s, u"责任心"_s, u"1"_s)});
    EXPECT_EQ(dialog.ui->cmbType->text(), u"001001 责任心"_s);
    EXPECT_TRUE(dialog.ui->cmbElements->isEnabled());
    PromptScript script;
    script.expect(vbOK, u"［测评要素］不能为空！"_s);
    click(dialog.ui->Command1);
    EXPECT_EQ(focused(), dialog.ui->cmbElements);
    EXPECT_EQ(dialog.ui->cmbElements->ListCount(), 1);
    choose(dialog.ui->cmbElements, u"001002 诚信"_s);
    click(dialog.ui->Command1);
    EXPECT_EQ(dialog.ResultLines.Item(1)->TypeCode, u"001002"_s);
    EXPECT_EQ(dialog.ResultLines.Item(1)->TypeName, u"诚信"_s);
}

TEST_F(ElementDialog, OffersEachElementOnce) {
    auto& dialog = open(true, {line(2, u"001"_s, u"职业素养"_s, {}), line(3, u"002"_s, u"专业能力"_s, {}),
                               line(1002, u"001001"_s, u"责任心"_s, {}), line(1003, u"001002"_s, u"诚信"_s, {})});
    EXPECT_EQ(dialog.ui->cmbType->ListCount(), 2) << "dimensions alone";
    PromptScript script;
    script.expect(vbOK, u"［测评要素］不能为空！"_s);
    click(dialog.ui->Command1);
    choose(dialog.ui->cmbType, u"002 专业能力"_s);
    EXPECT_EQ(dialog.ui->cmbElements->text(), u"002001 逻辑推理"_s);
    click(dialog.ui->Command2);
    EXPECT_EQ(dialog.ResultLines.Count(), 0);
}

}  // namespace
}  // namespace talvora::test
