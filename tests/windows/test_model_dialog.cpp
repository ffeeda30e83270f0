#include "assessment/frmmodel.h"
#include "assessment/frmtesting.h"
#include "windows/journey_bank.h"

namespace talvora::test {
namespace {

using namespace Qt::StringLiterals;

class ModelDialog : public JourneyTest {
 protected:
    frmModel& open() {
        frmModel& dialog = frmModel::Default();
        dialog.SolutionID = 1;
        dialog.Show();
        return dialog;
    }
};

TEST_F(ModelDialog, ListShowsThePapersAndChangesNothing) {
    frmModel& dialog = open();
    const QString drawn = dialog.ui->fg1->TextMatrix(4, 2);
    clickCell(dialog.ui->fg1, 4, 2);
    ASSERT_TRUE(dialog.Combo1->isVisible());
    EXPECT_EQ(dialog.Combo1->text(), drawn);
    EXPECT_EQ(dialog.Combo1->ListCount(), 2);
    choose(dialog.Combo1, drawn == u"LJ-1"_s ? u"LJ-2"_s : u"LJ-1"_s);
    EXPECT_EQ(dialog.ui->fg1->TextMatrix(4, 2), drawn);

    clickCell(dialog.ui->fg1, 3, 2);
    EXPECT_TRUE(dialog.Combo1->isVisible()) << "a dimension's list comes up empty";
    EXPECT_EQ(dialog.Combo1->ListCount(), 0);
    clickCell(dialog.ui->fg1, 4, 1);
    EXPECT_FALSE(dialog.Combo1->isVisible());
}

TEST_F(ModelDialog, RefusesAModelWithAnElementWithoutPapers) {
    cnnPublic.Execute(u"update Examination set Status='0 - 建立中' where TypeCode='002001'"_s);
    frmModel& dialog = open();
    EXPECT_TRUE(dialog.ui->fg1->ColHidden(0));
    const int levels[] = {1, 2, 1, 2};
    for (int row = 1; row <= 4; ++row) {
        EXPECT_EQ(dialog.ui->fg1->RowOutlineLevel(row), levels[row - 1]);
        EXPECT_EQ(dialog.ui->fg1->IsSubtotal(row), levels[row - 1] == 1);
    }
    PromptScript script;
    script.expect(vbOK, u"某些测评维度尚未设置试卷，您不能继续测评！"_s);
    click(dialog.ui->cmdOK);
    EXPECT_EQ(script.last().style, vbInformation);
    EXPECT_TRUE(dialog.isLoaded());
    EXPECT_EQ(dialog.Testings->Count(), 3) << "the rows up to the refused one";
    click(dialog.ui->cmdClose);
    EXPECT_TRUE(dialog.IsCancel);
}

// What the test window does after each way out of the dialog.
TEST_F(ModelDialog, CancelLeavesTheTestWindowWaiting) {
    frmTesting& w = frmTesting::Default();
    w.Show();
    type(w.ui->txtID, u"1"_s);
    type(w.ui->txtName, u"a"_s);
    choose(w.ui->cmbTypeName, u"|-销售经理模型"_s);
    const std::function<void(frmModel&)> exits[] = {
        [](frmModel& model) { model.window()->close(); },  // hands back an empty list
        [](frmModel& model) { click(model.ui->cmdClose); },
        [](frmModel&) { press(Qt::Key_Escape); },
    };
    for (const auto& leave : exits) {
        whenModal<frmModel>(leave);
        click(w.ui->cmdStart);
        EXPECT_EQ(w.ui->fg1->Rows(), 1);
        EXPECT_TRUE(w.ui->cmdStart->isEnabled());
        EXPECT_FALSE(w.ui->cmdSubmit->isEnabled());
    }
    whenModal<frmModel>([](frmModel& model) { click(model.ui->cmdOK); });
    click(w.ui->cmdStart);
    EXPECT_TRUE(w.ui->cmdSubmit->isEnabled());
}

}  // namespace
}  // namespace talvora::test
