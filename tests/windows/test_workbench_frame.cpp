#include "core/mdlpublic.h"
#include "journey_bank.h"
#include "platform/user_settings.h"
#include "support/error_of.h"
#include "toolkit/twips.h"
#include "workbench/frmabout.h"
#include "workbench/frmmain.h"
#include "workbench/frmsysinfo.h"

#include <QDesktopServices>
#include <QShortcut>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

namespace talvora::test {
namespace {

using namespace Qt::StringLiterals;

/// Stands in for the desktop's browser.
class Browser : public QObject {
    Q_OBJECT

 public:
    QStringList pages;

 public Q_SLOTS:
    void open(const QUrl& page) { pages += page.toString(); }
};

class Workbench : public JourneyTest {
 protected:
    Workbench() {
        setUserSettingsFile(folder_.filePath(u"place.ini"_s));
        strCurrentUser = u"admin"_s;
    }
    ~Workbench() override {
        frmMain::Default().Form::Hide();
        strCurrentUser.clear();
    }

    /// A user of one role, which may open these modules.
    static void logInWithRights(const QString& modules) {
        cnnPublic.Execute(u"insert into Roles (RoleName, RoleCode, RoleDesc) values ('r', '009', '')"_s);
        cnnPublic.Execute(u"insert into Users (UserName, UserDesc, Password, Locked) values ('u', '', 'p', 0)"_s);
        cnnPublic.Execute(
            u"insert into UserRole (UserID, RoleID) select u.UserID, r.RoleID from Users u, Roles r "
            "where u.UserName='u' and r.RoleName='r'"_s);
        for (const QString& module : modules.split(u' ', Qt::SkipEmptyParts)) {
            cnnPublic.Execute(
                u"insert into RoleRight (RoleID, ModuleCode, ModuleFunction, IsAccess) select r.RoleID, "
                "m.ModuleCode, 'browse', 1 from Roles r, Modules m where r.RoleName='r' and "
                "m.TableName='"_s +
                module + u"'"_s);
        }
        strCurrentUser = u"u"_s;
    }

    /// Presses a splitter, takes it to a place in the area of the panes, in twips, and lets it go.
    void drag(SplitterBar* splitter, QPoint to) {
        QTest::mousePress(splitter, Qt::LeftButton, {}, QPoint(1, 1));
        QTest::mouseMove(splitter, QPoint(toPixels(to.x()), toPixels(to.y())) - splitter->pos());
        QTest::mouseRelease(splitter, Qt::LeftButton);
    }

    static QString savedPlace() {
        QStringList place;
        for (const auto& key : {u"MainLeft"_s, u"MainTop"_s, u"MainWidth"_s, u"MainHeight"_s}) {
            place += GetSetting(u"Settings"_s, key, u"-"_s);
        }
        return place.join(u' ');
    }

    frmMain& w = frmMain::Default();

 private:
    QTemporaryDir folder_;
};

TEST_F(Workbench, OpensTheFirstModuleThatTheUserMayOpen) {
    const struct {
        QString rights;
        QString opened;
        QString nodes;  // the keys in the tree
        QString menu;   // which of users, roles, testing and testingtype can be chosen
    } cases[] = {
        {u"testing users"_s, u"Testing"_s, u"a001 a001001 a002 a002002"_s, u"1010"_s},
        {u"solution testingtype"_s, u"testingtype"_s, u"a001 a001002 a001003 a002"_s, u"0001"_s},
        {u"roles users"_s, u"Users"_s, u"a001 a002 a002002 a002003"_s, u"1100"_s},
        {u"position roles"_s, u""_s, u"a001 a002 a002001 a002003"_s, u"0100"_s},
        {u""_s, u"error 35600"_s, u""_s, u""_s},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.rights.toStdString());
        emptyTables({u"Users"_s, u"UserRole"_s, u"Roles"_s, u"RoleRight"_s});
        logInWithRights(c.rights);
        w.strCurrentModule.clear();
        if (const int error = errorOf([&] { w.Load(); }); error != 0) {
            EXPECT_EQ(u"error %1"_s.arg(error), c.opened);
            continue;
        }
        EXPECT_EQ(w.strCurrentModule, c.opened);
        QStringList nodes;
        for (int node = 1; node <= w.ui->tvTreeView->NodeCount(); ++node) {
            nodes += w.ui->tvTreeView->Key(node);
        }
        EXPECT_EQ(nodes.join(u' '), c.nodes);
        QString menu;
        for (const QAction* entry : {w.ui->mnuUsers, w.ui->mnuRoles, w.ui->mnuTesting, w.ui->mnuTestingType}) {
            menu += entry->isEnabled() ? u'1' : u'0';
        }
        EXPECT_EQ(menu, c.menu);
        w.Unload();
    }
}

TEST_F(Workbench, KeepsItsPlaceOnlyWhenClosedFromItsFrame) {
    w.Show();
    EXPECT_EQ(w.window()->size(), QSize(toPixels(11000), toPixels(7000)));
    EXPECT_EQ(w.window()->pos(), QPoint(toPixels(1000), toPixels(1000)));
    EXPECT_EQ(savedPlace(), u"- - - -"_s);
    w.ui->mnuExit->trigger();
    EXPECT_EQ(programEnds().size(), 1U);
    EXPECT_EQ(savedPlace(), u"- - - -"_s);

    w.Show();
    w.window()->move(10, 20);
    w.window()->resize(760, 500);
    frmAbout::Default().Show();
    w.window()->close();
    EXPECT_FALSE(w.isLoaded() || frmAbout::Default().isLoaded());
    EXPECT_EQ(savedPlace(), u"150 300 11400 7500"_s);

    w.Show();
    EXPECT_EQ(QRect(w.window()->pos(), w.window()->size()), QRect(10, 20, 760, 500));
    w.window()->showMinimized();
    w.window()->close();
    EXPECT_EQ(savedPlace(), u"150 300 11400 7500"_s);

    // The whole window comes back onto the screen of 800 pixels, further to the left than a narrower one.
    SaveSetting(u"Settings"_s, u"MainLeft"_s, u"900000"_s);
    w.Show();
    EXPECT_EQ(w.window()->pos(), QPoint(800 - 760, toPixels(1000)));
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
    w.window()->resize(790, 467);
    QCoreApplication::processEvents();
    EXPECT_GT(w.ui->fgDetail->height(), 80);
}

TEST_F(Workbench, ClosesTheDetailPaneWithAnotherModule) {
    w.Show();
    const struct {
        QAction* open;
        ToolBar* toolbar;
        QString hide;
        QString show;
    } modules[] = {
        {w.ui->mnuTestingType, w.ui->tbrTestingType, u"隐藏试题 "_s, u" 显示试题"_s},
        {w.ui->mnuTesting, w.ui->tbrTesting, u"隐藏明细"_s, u"显示明细"_s},
    };
    for (const auto& module : modules) {
        module.open->trigger();
        click(module.toolbar->button(u"detail"_s));
        EXPECT_EQ(module.toolbar->caption(u"detail"_s), module.hide);
        EXPECT_TRUE(w.ui->fgDetail->isVisible());
        w.ui->mnuRoles->trigger();
        EXPECT_TRUE(w.ui->tbrRoles->isVisible());
        EXPECT_FALSE(module.toolbar->isVisible() || w.ui->fgDetail->isVisible());
        module.open->trigger();
        EXPECT_EQ(module.toolbar->caption(u"detail"_s), module.show);
    }
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
    auto* nextPane = w.window()->findChild<QShortcut*>();
    EXPECT_EQ(nextPane->key(), QKeySequence(Qt::Key_F6));
    for (QWidget* stop : {static_cast<QWidget*>(w.ui->fg), static_cast<QWidget*>(w.ui->tbrRoles->button(u"add"_s)),
                          static_cast<QWidget*>(tree)}) {
        Q_EMIT nextPane->activated();
        EXPECT_EQ(focused(), stop);
    }
    w.ui->mnuSolution->trigger();
    EXPECT_EQ(tree->currentItem(), &tree->Node(4));
}

TEST_F(Workbench, ShowsEveryButtonAtItsSmallest) {
    w.Show();
    for (QAction* open : {w.ui->mnuTesting, w.ui->mnuTestingType, w.ui->mnuPosition, w.ui->mnuUsers}) {
        open->trigger();
        QCoreApplication::processEvents();
        for (const ToolBar* toolbar : w.window()->findChildren<ToolBar*>()) {
            EXPECT_TRUE(!toolbar->isVisible() || toolbar->width() >= toolbar->sizeHint().width())
                << toolbar->objectName().toStdString();
        }
    }
}

#ifndef Q_OS_WIN
TEST_F(Workbench, OpensTheWebPageThatIsConfigured) {
    Browser browser;
    QDesktopServices::setUrlHandler(u"http"_s, &browser, "open");
    w.Show();
    w.ui->mnuViewWebBrowser->trigger();
    SaveSetting(u"Help"_s, u"WebPage"_s, u"www.example.org"_s);
    w.ui->mnuViewWebBrowser->trigger();
    QDesktopServices::unsetUrlHandler(u"http"_s);
    EXPECT_EQ(browser.pages, QStringList{u"http://www.example.org"_s});
}
#endif

TEST_F(Workbench, HelpIsSilentWhereNothingOpensIt) {
    w.Show();
    w.ui->mnuHelpSearchForHelpOn->trigger();
    SaveSetting(u"Help"_s, u"HelpFile"_s, QString());
    PromptScript script;
    script.expect(vbOK, u"无法显示帮助目录，该工程没有相关联的帮助。"_s);
    w.ui->mnuHelpSearchForHelpOn->trigger();
    whenModal<frmAbout>([](frmAbout& about) {
        EXPECT_EQ(about.ui->lblTitle->text(), u"Talvora 1.3 Build 201000905"_s);
        click(about.ui->cmdOK);
    });
    w.ui->mnuHelpAbout->trigger();
    frmSysInfo::Default().Show();
    EXPECT_GT(frmSysInfo::Default().ui->fg->Rows(), 5);
}

}  // namespace
}  // namespace talvora::test

#include "test_workbench_frame.moc"
