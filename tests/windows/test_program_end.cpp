// What stays when the program ends: the sheets that the user has open, and no copy of one in a temporary folder.

#include "core/mdlpublic.h"
#include "journey_bank.h"
#include "spreadsheet/frmworkbook.h"
#include "toolkit/application/private_folder.h"
#include "workbench/frmmain.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTimer>
#include <gmock/gmock.h>

#include <csignal>

namespace talvora::test {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;

class ProgramEndTest : public JourneyTest {
 protected:
    ProgramEndTest() { strCurrentUser = u"admin"_s; }
    ~ProgramEndTest() override { strCurrentUser.clear(); }
};

TEST_F(ProgramEndTest, SheetsOutliveTheWorkbenchUntilTheyAreClosed) {
    const std::pair<std::function<void(frmMain&)>, std::size_t> ways[] = {
        {[](frmMain& main) { main.window()->close(); }, 0},
        {[](frmMain& main) { main.ui->mnuExit->trigger(); }, 1},
    };
    for (const auto& [leave, ends] : ways) {
        frmMain& main = frmMain::Default();
        main.Show();
        frmWorkbook& sheet = frmWorkbook::Open(Workbook(), u"测评记录明细"_s);
        frmWorkbook& second = frmWorkbook::Open(Workbook(), u"角色一览表"_s);
        leave(main);
        EXPECT_THAT(Form::loaded(), ElementsAre(&sheet, &second));
        EXPECT_TRUE(sheet.window()->isVisible());
        EXPECT_EQ(programEnds().size(), ends);
        int closed = 0;
        for (frmWorkbook* one : {&second, &sheet}) {
            QTimer::singleShot(++closed, one->window(), [one] { click(one->ui->cmdClose); });
        }
        Form::runUntilNoneStandsAlone();
        EXPECT_TRUE(Form::loaded().empty());
    }
    // An error is the end of everything.
    frmMain::Default().Show();
    frmWorkbook::Open(Workbook(), u"测评记录明细"_s);
    PromptScript script;
    script.expect();
    guarded([] { throw RuntimeError(errors::Overflow); });
    EXPECT_TRUE(Form::loaded().empty());
}

#ifdef Q_OS_UNIX
class PrivateFolderDeathTest : public WindowTest {
 protected:
    PrivateFolderDeathTest() { qputenv("TMPDIR", QFile::encodeName(temporary_.path())); }
    ~PrivateFolderDeathTest() override { before_.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before_); }

    /// Hands a sheet to another program, as the user does.
    static void openElsewhere() {
        QTextBrowser program;
        QDesktopServices::setUrlHandler(u"file"_s, &program, "setSource");
        click(frmWorkbook::Open(Workbook(), u"测评记录明细"_s).ui->cmdOpen);
        QDesktopServices::unsetUrlHandler(u"file"_s);
        if (!QFile::exists(program.source().toLocalFile())) {
            std::abort();
        }
    }

    static qsizetype left() { return QDir::temp().entryList({u"talvora-sheets-*"_s}).size(); }

 private:
    const QByteArray before_ = qgetenv("TMPDIR");
    QTemporaryDir temporary_;
};

TEST_F(PrivateFolderDeathTest, NothingStaysHoweverTheProgramEnds) {
    // Each in a process of its own, which ends in the program's own way.
    const auto end = [](const std::function<void()>& how) {
        setProgramEnder({});
        PromptScript script;
        script.expect();
        openElsewhere();
        how();
    };
    const auto exit = [] {
        Form::dropAll();
        endProgram(ProgramEnd::Orderly);
    };
    EXPECT_EXIT(end(exit), ::testing::ExitedWithCode(0), "");
    EXPECT_EQ(left(), 0);
    EXPECT_EXIT(end([] { guarded([] { throw RuntimeError(errors::Overflow); }); }), ::testing::ExitedWithCode(1), "");
    EXPECT_EQ(left(), 0);
    EXPECT_EXIT(end([] { std::raise(SIGKILL); }), ::testing::KilledBySignal(SIGKILL), "");
    EXPECT_EQ(left(), 1);

    // The next start takes it away, but neither what another process still uses nor what is not a folder of sheets.
    const QTemporaryDir elsewhere;
    QDir(elsewhere.path()).mkdir(u"1"_s);
    QFile::link(elsewhere.path(), QDir::temp().filePath(u"talvora-sheets-link"_s));
    {
        PrivateFolder alive;
        QFile file(alive.newPath(u"a.xlsx"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.setPermissions(QFileDevice::ReadOwner));
        PrivateFolder::removeLeft();
        EXPECT_TRUE(file.exists());
        EXPECT_EQ(left(), 2);
    }
    EXPECT_EQ(left(), 1) << "the link";
    EXPECT_TRUE(QDir(elsewhere.path()).exists(u"1"_s));
}
#endif

}  // namespace
}  // namespace talvora::test
