#include "core/mdlpublic.h"
#include "journey_bank.h"
#include "platform/user_settings.h"
#include "support/error_of.h"
#include "toolkit/forms/form_setup.h"
#include "toolkit/forms/twips.h"
#include "workbench/frmabout.h"
#include "workbench/frmmain.h"
#include "workbench/frmsysinfo.h"

#include <QDesktopServices>
#include <QScrollBar>
#include <QShortcut>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <QToolButton>

namespace talvora::test {
namespace {

using namespace Qt::StringLiterals;

class Workbench : public JourneyTest {
 protected:
    Workbench() {
        setUserSettingsFile(folder.filePath(u"place.ini"_s));
        strCurrentUser = u"admin"_s;
    }
    ~Workbench() override {
        frmMain::Default().Form::Hide();
        strCurrentUser.clear();
    }

    /// Presses a splitter, takes it to a place in the area of the panes, in twips, and lets it go.
    void drag(SplitterBar* splitter, QPoint to) {
        QTest::mousePress(splitter, Qt::LeftButton, {}, QPoint(1, 1));
        QTest::mouseMove(splitter, QPoint(toPixels(to.x()), toPixels(to.y())) - splitter->pos());
        QTest::mouseRelease(splitter, Qt::LeftButton);
    }

    static QString savedPlace() {
        const auto saved = [](const QString& key) { return GetSetting(u"Settings"_s, key, u"-"_s) + u' '; };
        return saved(u"MainLeft"_s) + saved(u"MainTop"_s) + saved(u"MainWidth"_s) + saved(u"MainHeight"_s);
    }

    QTemporaryDir folder;
    frmMain& w = frmMain::Default();
};

TEST_F(Workbench, OpensTheFirstModuleThatTheUserMayOpen) {
    // The modules that may be browsed, the one opened, the tree's keys, and which of four menu entries are usable.
    const QString cases[][4] = {
        {u"testing','users"_s, u"Testing"_s, u"a001 a001001 a002 a002002"_s, u"1010"_s},
        {u"solution','testingtype"_s, u"testingtype"_s, u"a001 a001002 a001003 a002"_s, u"0001"_s},
        {u"roles','users"_s, u"Users"_s, u"a001 a002 a002002 a002003"_s, u"1100"_s},
        {u"position','roles"_s, u""_s, u"a001 a002 a002001 a002003"_s, u"0100"_s},
        {u""_s, u"error 35600"_s, u""_s, u""_s},
    };
    cnnPublic.Execute(u"insert into Users (UserName, Password, Locked) values ('u', 'p', 0)"_s);
    cnnPublic.Execute(u"insert into Roles (RoleName, RoleCode) values ('r', '009')"_s);
    cnnPublic.Execute(u"insert into UserRole (UserID, RoleID) values (2, 2)"_s);
    strCurrentUser = u"u"_s;
    for (const auto& [rights, opened, keys, usable] : cases) {
        SCOPED_TRACE(rights.toStdString());
        emptyTables({u"RoleRight"_s});
        cnnPublic.Execute(
            u"insert into RoleRight (RoleID, ModuleCode, ModuleFunction, IsAccess) select 2, ModuleCode, "
            "'browse', 1 from Modules where TableName in ('%1')"_s.arg(rights));
        w.strCurrentModule.clear();
        if (const int error = errorOf([&] { w.Load(); }); error != 0) {
            EXPECT_EQ(u"error %1"_s.arg(error), opened);
            continue;
        }
        EXPECT_EQ(w.strCurrentModule, opened);
        QString nodes, menu;
        for (int node = 1; node <= w.ui->tvTreeView->NodeCount(); ++node) {
            nodes += w.ui->tvTreeView->Key(node) + u' ';
        }
        EXPECT_EQ(nodes.trimmed(), keys);
        for (const QAction* entry : {w.ui->mnuUsers, w.ui->mnuRoles, w.ui->mnuTesting, w.ui->mnuTestingType}) {
            menu += entry->isEnabled() ? u'1' : u'0';
        }
        EXPECT_EQ(menu, usable);
        w.Unload();
    }
}

TEST_F(Workbench, KeepsItsPlaceOnlyWhenClosedFromItsFrame) {
    w.Show();
    EXPECT_EQ(w.window()->size(), QSize(toPixels(11000), toPixels(7000)));
    EXPECT_EQ(w.window()->pos(), QPoint(toPixels(1000), toPixels(1000)));
    EXPECT_EQ(savedPlace(), u"- - - - "_s);
    w.ui->mnuExit->trigger();
    EXPECT_EQ(programEnds().size(), 1U);
    EXPECT_EQ(savedPlace(), u"- - - - "_s);

    w.Show();
    w.window()->move(10, 20);
    w.window()->resize(760, 500);
    frmAbout::Default().Show();
    w.window()->close();
    EXPECT_FALSE(w.isLoaded() || frmAbout::Default().isLoaded());
    EXPECT_EQ(savedPlace(), u"150 300 11400 7500 "_s);

    w.Show();
    EXPECT_EQ(QRect(w.window()->pos(), w.window()->size()), QRect(10, 20, 760, 500));
    w.window()->showMinimized();
    w.window()->close();
    EXPECT_EQ(savedPlace(), u"150 300 11400 7500 "_s);

    // The whole window comes back onto the screen of 800 pixels, further to the left than a narrower one.
    SaveSetting(u"Settings"_s, u"MainLeft"_s, u"900000"_s);
    w.Show();
    EXPECT_EQ(w.window()->pos(), QPoint(800 - 760, toPixels(1000)));
    w.window()->close();

    // One that has become too large is put back with its frame within the screen.
    for (const auto& key : {u"MainWidth"_s, u"MainHeight"_s}) {
        SaveSetting(u"Settings"_s, key, QString::number(toTwips(800)));
    }
    w.Show();
    EXPECT_EQ(QRect(w.window()->pos(), w.window()->size()), QRect(QPoint(), QSize(800, 800) - FrameAllowance));
}

TEST_F(Workbench, MovesItsSplittersWithinLimits) {
    w.Show();
    const int width = toTwips(w.window()->width());
    for (const auto& [to, tree] : {std::pair(400, 3000), {1400, 3000}, {2010, 2010}, {width, width - 3000}}) {
        drag(w.ui->imgSplitter, QPoint(to, 1500));
        EXPECT_NEAR(toTwips(w.ui->tvTreeView->width()), tree, TwipsPerPixel) << to;
        EXPECT_NEAR(toTwips(w.ui->fg->x() + w.ui->fg->width()), width - 100, 2 * TwipsPerPixel);
    }
    w.window()->resize(790, 780);
    QCoreApplication::processEvents();
    click(w.ui->tbrTesting->button(u"detail"_s));
    const int height = toTwips(w.window()->height());
    for (const auto& [to, top] : {std::pair(1000, 4000), {5010, 5010}, {height, height - 4000}}) {
        drag(w.ui->ImgVertical, QPoint(6000, to));
        EXPECT_NEAR(toTwips(w.ui->fgDetail->y()), top + 100, 2 * TwipsPerPixel) << to;
        EXPECT_NEAR(w.ui->fgDetail->y() - w.ui->fg->geometry().bottom(), toPixels(50), 2);
    }
}

TEST_F(Workbench, ClosesTheDetailPaneWithAnotherModule) {
    w.Show();
    for (const auto& [open, toolbar, closed] : {std::tuple(w.ui->mnuTestingType, w.ui->tbrTestingType, u" 显示试题"_s),
                                                {w.ui->mnuTesting, w.ui->tbrTesting, u"显示明细"_s}}) {
        open->trigger();
        QCoreApplication::processEvents();
        EXPECT_GE(toolbar->width(), toolbar->sizeHint().width()) << "buttons cut off";
        click(toolbar->button(u"detail"_s));
        EXPECT_TRUE(w.ui->fgDetail->isVisible());
        w.ui->mnuRoles->trigger();
        EXPECT_TRUE(w.ui->tbrRoles->isVisible());
        EXPECT_FALSE(toolbar->isVisible() || w.ui->fgDetail->isVisible());
        open->trigger();
        EXPECT_EQ(toolbar->caption(u"detail"_s), closed);
    }
}

TEST_F(Workbench, KeepsLongQuestionsBesideTheirAnswers) {
    const QString question = u"当您负责的项目进度明显落后于计划，而同事都很忙，您通常会首先采取哪一种做法？"_s;
    cnnPublic.Execute(u"update ExaminationQuestion set QuestionName='%1', Answer1='%1'"_s.arg(question));
    cnnPublic.Execute(
        u"insert into TestingResult (TestingNumber, TypeName, TypeCode, SolutionID) values (1, 't', '001001', 0)"_s);
    cnnPublic.Execute(
        u"insert into TestingResultDetail (TestingID, ExaminationID, QuestionName, Answer1) values (1, 1, '%1', '%1')"_s
            .arg(question));
    w.Show();
    EXPECT_EQ(w.window()->size(), QSize(toPixels(11000), toPixels(7000)));
    for (const auto& [open, toolbar, row, questionRow, col] :
         {std::tuple(w.ui->mnuTestingType, w.ui->tbrTestingType, 3, 1, 1),
          {w.ui->mnuTesting, w.ui->tbrTesting, 1, 2, 0}}) {
        open->trigger();
        w.ui->fg->Select(row, 1);
        click(toolbar->button(u"detail"_s));
        QCoreApplication::processEvents();
        FlexGrid& pane = *w.ui->fgDetail;
        const QRect before = pane.CellRect(questionRow, col);
        ASSERT_GT(pane.horizontalScrollBar()->maximum(), 0);
        pane.horizontalScrollBar()->setValue(pane.horizontalScrollBar()->maximum());
        EXPECT_EQ(pane.CellRect(questionRow, col), before);
        EXPECT_LT(before.right(), pane.viewport()->width() * 3 / 4);
    }
}

TEST_F(Workbench, ShowsTheLegendOfItsList) {
    w.Show();
    w.ui->mnuTesting->trigger();
    const QString legend = w.ui->lblLegend->text();
    EXPECT_TRUE(legend.contains(w.ui->fg->toolTip()));
    w.ui->mnuPosition->trigger();
    EXPECT_EQ(w.ui->lblLegend->text(), legend) << "positions leave the legend alone";
    w.ui->mnuRoles->trigger();
    EXPECT_EQ(w.ui->lblLegend->text() + w.ui->fg->toolTip(), QString());
}

TEST_F(Workbench, FollowsMouseAndKeysInTheTree) {
    w.Show();
    ModuleTree* tree = w.ui->tvTreeView;
    const auto clickNode = [&](int node) {
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualItemRect(&tree->Node(node)).center());
    };
    clickNode(6);
    EXPECT_EQ(w.strCurrentModule, u"position"_s);
    EXPECT_EQ(w.ui->fg->Row(), 1);
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->viewport()->rect().bottomRight());
    EXPECT_TRUE(tree->Node(6).isSelected());
    clickNode(5);
    EXPECT_EQ(w.strCurrentModule, u"position"_s);
    clickNode(7);
    press(Qt::Key_Down);
    EXPECT_EQ(w.strCurrentModule, u"Roles"_s);
    for (const QWidget* stop : std::initializer_list<QWidget*>{w.ui->fg, w.ui->tbrRoles->button(u"add"_s), tree}) {
        Q_EMIT w.window()->findChild<QShortcut*>()->activated();
        EXPECT_EQ(focused(), stop);
    }
    w.ui->mnuSolution->trigger();
    EXPECT_EQ(tree->currentItem(), &tree->Node(4));
}

#ifndef Q_OS_WIN
TEST_F(Workbench, OpensTheWebPageThatIsConfigured) {
    QTextBrowser browser;
    QDesktopServices::setUrlHandler(u"http"_s, &browser, "setSource");
    w.Show();
    w.ui->mnuViewWebBrowser->trigger();
    EXPECT_TRUE(browser.source().isEmpty());
    SaveSetting(u"Help"_s, u"WebPage"_s, u"www.example.org"_s);
    w.ui->mnuViewWebBrowser->trigger();
    QDesktopServices::unsetUrlHandler(u"http"_s);
    EXPECT_EQ(browser.source(), QUrl(u"http://www.example.org"_s));
}
#endif

TEST_F(Workbench, HelpIsSilentWhereNothingOpensIt) {
    w.Show();
    w.ui->mnuHelpSearchForHelpOn->trigger();
    SaveSetting(u"Help"_s, u"HelpFile"_s, QString());
    PromptScript script;
    script.expect(vbOK, u"无法显示帮助目录，该工程没有相关联的帮助。"_s);
    w.ui->mnuHelpSearchForHelpOn->trigger();
    EXPECT_EQ(script.last().style, vbInformation);
    whenModal<frmAbout>([](frmAbout& about) { click(about.ui->cmdOK); });
    w.ui->mnuHelpAbout->trigger();
    frmSysInfo::Default().Show();
    EXPECT_GT(frmSysInfo::Default().ui->fg->Rows(), 5);
}

}  // namespace
}  // namespace talvora::test
