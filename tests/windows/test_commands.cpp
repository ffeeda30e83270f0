#include "access/frmpassword.h"
#include "access/frmrole.h"
#include "access/frmuser.h"
#include "models/frmsolution.h"
#include "organisation/frmposition.h"
#include "results/search/cquery.h"
#include "results/search/frmfind.h"
#include "testbank/frmexamination.h"
#include "testbank/frmtypechild.h"
#include "testbank/frmtypeparent.h"
#include "windows/grid_listing.h"
#include "windows/journey_bank.h"
#include "workbench/frmmain.h"

#include <QHeaderView>
#include <QTest>
#include <QToolButton>

namespace talvora::test {
namespace {

using namespace Qt::StringLiterals;

/// The bank of the journeys, and a user li who may do little.
class Commands : public JourneyTest {
 protected:
    Commands() {
        cnnPublic.Execute(u"insert into Users (UserName, Password, Locked) values ('li', '', 0)"_s);
        cnnPublic.Execute(u"insert into Roles (RoleName, RoleCode) values ('R', '002')"_s);
        cnnPublic.Execute(u"insert into UserRole (UserID, RoleID) values (2, 2)"_s);
        cnnPublic.Execute(
            u"insert into RoleRight (RoleID, ModuleCode, ModuleFunction, IsAccess) values "
            "(2, '002002', 'browse', 1), (2, '002002', 'export', 1), (2, '001003', 'browse', 1)"_s);
        cnnPublic.Execute(
            u"insert into TestingResult (TestingNumber, Name, Sex, Age, Education, IdNumber, TestingDate, TypeName, "
            "TypeCode, Score, TestingResult, SolutionID) values (1, 'n', 's', 20, 'e', 'i', 'd', 't', '001001', 5, 'r', 0)"_s);
    }
    ~Commands() override { strCurrentUser.clear(); }

    void logIn(const QString& user) {
        strCurrentUser = user;
        main.Show();
    }
    /// Chooses the module in the tree, which selects the first row, and then another row; for 0 none.
    void open(const QString& module, int row) {
        for (int node = 1; node <= main.ui->tvTreeView->NodeCount(); ++node) {
            if (main.ui->tvTreeView->Tag(node) == module) {
                Q_EMIT main.ui->tvTreeView->NodeClick(&main.ui->tvTreeView->Node(node));
            }
        }
        fg().Select(row, 1);
    }
    FlexGrid& fg() { return *main.ui->fg; }
    ToolBar& bar() {
        const auto bars = main.window()->findChildren<ToolBar*>();
        return **std::find_if(bars.begin(), bars.end(), [](const ToolBar* each) { return each->isVisible(); });
    }
    void press(const QString& key) { click(bar().button(key)); }
    frmMain& main = frmMain::Default();
};

/// What a dialog was told before it was shown.
QString told(const QString& name) {
    const auto text = [](const auto& dialog, const QVariant& key) {
        return (dialog.AddMode ? u"add "_s : u"edit "_s) + key.toString();
    };
    const frmPosition& position = frmPosition::Default();
    return QHash<QString, QString>{
        {u"frmPosition"_s, text(position, position.PostCodeOf) + (position.ChildMode ? u" under"_s : u" beside"_s)},
        {u"frmTypeParent"_s, text(frmTypeParent::Default(), frmTypeParent::Default().TypeCodeOf)},
        {u"frmTypeChild"_s, text(frmTypeChild::Default(), frmTypeChild::Default().TypeCodeOf)},
        {u"frmExamination"_s, text(frmExamination::Default(), frmExamination::Default().ExaminationIDOf)},
        {u"frmRole"_s, text(frmRole::Default(), frmRole::Default().RoleIDOf)},
        {u"frmUser"_s, text(frmUser::Default(), frmUser::Default().UserIDOf)},
        {u"frmSolution"_s, text(frmSolution::Default(), frmSolution::Default().SolutionIDOf)},
        {u"frmPassword"_s, frmPassword::Default().UserNameOf}}[name];
}

TEST_F(Commands, DialogsGuardsAndQuestions) {
    cnnPublic.Execute(u"insert into Position (PostCode, PostName) values ('%1', 'deep')"_s.arg(u"001"_s.repeated(10)));
    cnnPublic.Execute(u"update Examination set DescScope1='', DescScope2='', DescScope3=''"_s);
    logIn(u"admin"_s);
    struct {
        QString module, key;
        int row;
        QString outcome;  // what the message says, or what the dialog was told
        int rows, rowAfter;
        MsgBoxResult answer = vbOK;
    } const cases[] = {
        {u"position"_s, u"type2"_s, 2, u"add 001001 under"_s, 5, 2},
        {u"position"_s, u"edit"_s, 1, u"edit 001 under"_s, 5, 1},  // what is not set keeps what it held
        {u"position"_s, u"type1"_s, 2, u"add 001001 beside"_s, 5, 2},
        {u"testingtype"_s, u"edit"_s, 6, u"edit 002"_s, 12, 0},
        {u"testingtype"_s, u"edit"_s, 8, u"edit 3"_s, 12, 0},
        {u"testingtype"_s, u"type2"_s, 8, u"add 002"_s, 12, 0},
        {u"roles"_s, u"edit"_s, 2, u"edit 2"_s, 3, 2},
        {u"users"_s, u"edit"_s, 2, u"edit 2"_s, 3, 2},
        {u"users"_s, u"edit"_s, 1, u"admin"_s, 3, 1},
        {u"solution"_s, u"edit"_s, 1, u"edit 1"_s, 2, 0},
        {u"position"_s, u"type2"_s, 0, u"请选择或增加一个［一级职位］！"_s, 5, 0},
        {u"position"_s, u"type2"_s, 4, u"最多允许10个层级，您不能再行增加［子职位］！"_s, 5, 4},
        {u"position"_s, u"edit"_s, 0, u"请选择或增加一个［职位］！"_s, 5, 0},
        {u"position"_s, u"del"_s, 0, u"已经没有或没选择拟删除的［职位］！"_s, 5, 0},
        {u"position"_s, u"del"_s, 1, u"该［职位］下还有［子职位］,不能删除！"_s, 5, 1},
        {u"position"_s, u"del"_s, 4, QString(), 4, 3},
        {u"roles"_s, u"edit"_s, 1, u"［系统管理员］为系统角色，不能修改！"_s, 3, 1},
        {u"roles"_s, u"del"_s, 0, u"已经没有记录可以删除！"_s, 3, 0},
        {u"roles"_s, u"del"_s, 1, u"［系统管理员］为系统角色，不能删除！"_s, 3, 1},
        {u"roles"_s, u"del"_s, 2, u"您确定删除当前所选的［角色］吗？"_s, 3, 2, vbYes},
        {u"users"_s, u"del"_s, 1, u"［admin］为系统用户，不能删除！"_s, 3, 1},
        {u"users"_s, u"del"_s, 2, u"您确定删除当前所选的［用户］吗？"_s, 3, 2, vbNo},
        {u"users"_s, u"del"_s, 2, u"您确定删除当前所选的［用户］吗？"_s, 2, 1, vbYes},
        {u"solution"_s, u"edit"_s, 0, u"已经没有记录或没选择拟修改的记录！"_s, 2, 0},
        {u"solution"_s, u"del"_s, 1, u"您确定删除当前所选的［素质模型］吗？"_s, 1, 0, vbYes},
        {u"testingtype"_s, u"del"_s, 0, u"已经没有记录可以删除！"_s, 12, 0},
        {u"testingtype"_s, u"del"_s, 11, u"您确定删除当前所选的［类型］或［试卷］吗？"_s, 11, 10, vbYes},
        {u"testingtype"_s, u"del"_s, 10, u"您确定删除当前所选的［类型］或［试卷］吗？"_s, 10, 9, vbYes},
        {u"testing"_s, u"del"_s, 1, u"您确定删除当前所选的［测评记录］吗？"_s, 1, 0, vbYes},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE((each.module + u' ' + each.key + u' ' + each.outcome).toStdString());
        open(each.module, each.row);
        PromptScript script;
        if (each.outcome.startsWith(u'a') || each.outcome.startsWith(u'e')) {
            whenModal<Form>([&](Form& dialog) {
                EXPECT_EQ(told(dialog.window()->objectName()), each.outcome);
                dialog.window()->close();
            });
            press(each.key);
        } else {
            each.outcome.isEmpty() ? script : script.expect(each.answer, each.outcome);
            press(each.key);
            EXPECT_EQ(script.last().style, each.outcome.isEmpty() ? 0 : each.answer == vbOK ? 48 : 292);
        }
        EXPECT_EQ(fg().Rows(), each.rows);
        EXPECT_EQ(std::max(fg().Row(), 0), each.rowAfter);
    }
    open(u"testingtype"_s, 1);
    PromptScript script;
    script.expect(vbYes).expect(vbOK, u"该类型下还存在子类或试卷，不能删除！"_s);
    press(u"del"_s);
    EXPECT_EQ(rowCounts({u"Users"_s, u"Roles"_s, u"Position"_s, u"TestingSolution"_s}), u"1 2 3 0"_s);
    EXPECT_EQ(rowCounts({u"TestingResult"_s, u"TestingType"_s, u"Examination"_s}), u"0 5 4"_s);
}

TEST_F(Commands, FewRightsAndTheDoubleClickRoundThem) {
    logIn(u"li"_s);
    open(u"users"_s, 1);
    QString usable;
    for (const QString& key : bar().keys()) {
        usable += bar().button(key)->isEnabled() ? key + u' ' : QString();
    }
    EXPECT_EQ(usable, u"export exit "_s);
    const auto opensPassword = [] {
        whenModal<frmPassword>([](frmPassword& dialog) {
            EXPECT_EQ(dialog.UserNameOf, u"li"_s);
            dialog.window()->close();
        });
    };
    opensPassword();
    QTest::mouseDClick(fg().viewport(), Qt::LeftButton, Qt::NoModifier, fg().CellRect(1, 1).center());
    EXPECT_EQ(fg().Row(), 1);
    PromptScript script;
    script.expect(vbOK, u"［li］由系统用户创建，您无权删除！"_s);
    Q_EMIT bar().ButtonClick(u"del"_s);
    // The own password needs no row selected, as long as there is one; to delete does.
    main.ui->mnuUsers->trigger();
    EXPECT_EQ(fg().Row(), -1);
    opensPassword();
    Q_EMIT bar().ButtonClick(u"edit"_s);
    script.expect(vbOK, u"已经没有记录可以删除！"_s).expect(vbOK, u"已经没有记录可以修改！"_s);
    Q_EMIT bar().ButtonClick(u"del"_s);
    fg().setRows(1);
    Q_EMIT bar().ButtonClick(u"edit"_s);
}

TEST_F(Commands, ActOnTheMarkedRowWhateverIsPressedBesideIt) {
    logIn(u"admin"_s);
    const auto click = [&](QPoint place, Qt::KeyboardModifier key = Qt::NoModifier) {
        QTest::mouseClick(fg().viewport(), Qt::LeftButton, key, place);
    };
    QWidget* titles = fg().horizontalHeader()->viewport();
    for (const QString& module : {u"users"_s, u"testing"_s}) {
        open(module, 0);
        click(fg().CellRect(1, 1).center());
        click(fg().viewport()->rect().bottomLeft() - QPoint(-30, 5));
        click(fg().CellRect(1, 1).center(), Qt::ControlModifier);
        QTest::mouseClick(titles, Qt::LeftButton, {}, {20, 9});
        QTest::mouseDClick(titles, Qt::LeftButton, {}, {20, 9});  // opens nothing
        EXPECT_EQ(fg().SelectedRows(), std::vector<int>{1});
        EXPECT_EQ(fg().Row(), 1);
    }
    open(u"users"_s, 0);
    fg().setFocus(Qt::TabFocusReason);
    PromptScript script;
    script.expect(vbOK, u"已经没有记录可以删除！"_s);
    press(u"del"_s);
}

TEST_F(Commands, ThePaneFollowsTheMarkedRow) {
    logIn(u"admin"_s);
    open(u"testingtype"_s, 3);
    press(u"detail"_s);
    const auto shown = [&] { return main.ui->fgDetail->Rows() - 1; };
    QString found;
    fg().setFocus();
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Home, Qt::Key_End, Qt::Key_Up, Qt::Key_PageUp}) {
        QTest::keyClick(&fg(), key);
        found += u"%1:%2 "_s.arg(fg().Row()).arg(shown());
    }
    EXPECT_EQ(found, u"4:0 5:1 1:0 11:2 10:0 7:0 "_s);
    // The mouse is drawn over several rows, then a row is folded away.
    QTest::mousePress(fg().viewport(), Qt::LeftButton, {}, fg().CellRect(2, 1).center());
    const QPoint to = fg().CellRect(3, 1).center();
    QMouseEvent move(QEvent::MouseMove, to, fg().viewport()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(fg().viewport(), &move);
    QTest::mouseRelease(fg().viewport(), Qt::LeftButton, {}, to);
    EXPECT_EQ(u"%1:%2"_s.arg(fg().Row()).arg(shown()), u"3:3"_s);
    QTest::keyClick(&fg(), Qt::Key_Left);
    EXPECT_EQ(u"%1:%2"_s.arg(fg().Row()).arg(shown()), u"2:0"_s);
    press(u"detail"_s);
    const auto sent = statementsOf([&] { QTest::keyClick(&fg(), Qt::Key_Down); });
    EXPECT_EQ(sent.size(), 0) << "nothing is read for a pane that is shut";
}

TEST_F(Commands, SearchesFillTheList) {
    cQuery::AddNew(u"all"_s, u"select * from TestingResult"_s);
    logIn(u"admin"_s);
    open(u"testing"_s, 1);
    bar().entry(u"a1"_s)->trigger();
    EXPECT_EQ(listing(fg()), u"- 1|1|n|s|20|e|d|t|5|r"_s);
    EXPECT_EQ(focused(), &fg());
    main.ui->tvTreeView->setFocus();
    cnnPublic.Execute(u"delete from Query"_s);
    bar().entry(u"a1"_s)->trigger();
    EXPECT_EQ(fg().Rows(), 2) << "a search deleted meanwhile changes nothing";
    whenModal<frmFind>([](frmFind& dialog) { dialog.window()->close(); });
    press(u"find"_s);
    EXPECT_EQ(fg().TextMatrix(1, 5), u"e"_s) << "a cancelled search leaves the list";
    EXPECT_THROW(bar().entry(u"a1"_s), RuntimeError);
    whenModal<frmFind>([](frmFind& dialog) {
        type(dialog.ui->txtName, u"n"_s);
        click(dialog.ui->cmdFind);
    });
    press(u"find"_s);
    EXPECT_EQ(listing(fg()), u"- 1|1|n|s|20|i|e|||d|t||0|0|5|r"_s);
    EXPECT_EQ(main.window()->focusWidget(), &fg());
    EXPECT_EQ(fg().Row(), -1) << "nothing that was found is marked";
}

TEST_F(Commands, CaptionsTellTheDetailPaneAndTheLevels) {
    logIn(u"admin"_s);
    struct {
        QString module, key, captionOf, caption;
        int detailRows;  // with the header; 0 for a pane that is not to be seen
    } const steps[] = {
        {u"testing"_s, u"detail"_s, u"detail"_s, u"隐藏明细"_s, 2},
        {u"testing"_s, u"detail"_s, u"detail"_s, u"显示明细"_s, 0},
        {u"testingtype"_s, u"detail"_s, u"detail"_s, u"隐藏试题 "_s, 4},
        {u"testingtype"_s, u"level2"_s, u"level2"_s, u"显示子类  √"_s, 4},
        {u"testingtype"_s, u"level1"_s, u"level2"_s, u"显示子类"_s, 4},
        {u"position"_s, u"L10"_s, u"L10"_s, u"显示层级 10  √"_s, 0},
        {u"position"_s, u"L1"_s, u"L10"_s, u"显示层级 10"_s, 0},
    };
    for (const auto& each : steps) {
        SCOPED_TRACE((each.module + u' ' + each.key).toStdString());
        if (main.strCurrentModule.toLower() != each.module || fg().Row() < 1) {
            open(each.module, each.module == u"testingtype"_s ? 3 : 1);
        }
        each.key == u"detail"_s ? press(each.key) : bar().entry(each.key)->trigger();
        EXPECT_EQ(bar().caption(each.captionOf), each.caption);
        EXPECT_EQ(main.ui->fgDetail->isVisible() ? main.ui->fgDetail->Rows() : 0, each.detailRows);
    }
    EXPECT_TRUE(fg().CellRect(2, 1).isEmpty()) << "folded";
}

}  // namespace
}  // namespace talvora::test
