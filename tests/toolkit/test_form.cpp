#include "tests/support/error_of.h"
#include "tests/support/windows.h"
#include "tests/toolkit/frmsample.h"
#include "toolkit/application/application.h"
#include "toolkit/application/last_resort.h"
#include "toolkit/forms/form_setup.h"
#include "toolkit/forms/quotes.h"

#include <QApplication>
#include <QLayout>
#include <QScreen>
#include <QWheelEvent>
#include <QWindow>
#include <gmock/gmock.h>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace talvora;
using namespace talvora::test;
using ::testing::ElementsAre;

namespace {

class FormTest : public WindowTest {
 protected:
    frmSample& form = frmSample::Default();
};

TEST_F(FormTest, FieldsOutliveTheControlsWhichAHiddenFormKeeps) {
    form.NameOf = u"张三"_s;
    form.atOK = [&] { form.Hide(); };
    whenModal<frmSample>([](frmSample& w) {
        type(w.ui->txtName, w.NameOf);
        click(w.ui->cmdOK);
    });
    form.ShowModal();
    EXPECT_TRUE(form.isLoaded());
    // Shown again it is the same window, and its load is not raised a second time.
    whenModal<frmSample>([](frmSample& w) {
        w.NameOf = w.ui->txtName->text() + u"丰"_s;
        w.window()->close();
    });
    form.ShowModal();
    EXPECT_FALSE(form.isLoaded());
    EXPECT_EQ(form.NameOf, u"张三丰"_s);
    EXPECT_THAT(form.events, ElementsAre(u"load"_s, u"unload"_s));
    // A reference to a control loads the form afresh.
    EXPECT_EQ(form.ui->txtName->text(), QString());
    EXPECT_FALSE(form.window()->isVisible());
}

TEST_F(FormTest, RefusesASecondShowingAndAFailedLoad) {
    form.atLoad = [] { throw RuntimeError(errors::TypeMismatch); };
    EXPECT_EQ(errorOf([&] { form.ShowModal(); }), errors::TypeMismatch);
    EXPECT_FALSE(form.isLoaded());
    form.atLoad = [] {};
    form.Show();
    EXPECT_THAT(form.events, ElementsAre(u"load"_s, u"load"_s));
    EXPECT_EQ(errorOf([&] { form.ShowModal(); }), 400);
}

TEST_F(FormTest, EnterMovesOnLikeTabAndEscapePressesTheCancelButton) {
    form.Show();
    form.ui->optAnd->setChecked(true);
    form.ui->lstType->addItems({u"甲"_s, u"乙"_s});
    form.ui->cmbSex->AddItem(u"男"_s);
    int pressed = 0;
    form.atOK = [&] { ++pressed; };
    form.ui->txtName->setFocus();
    QStringList order;
    while (order.size() < 9) {
        order << focused()->objectName();
        press(order.size() % 2 == 0 ? Qt::Key_Enter : Qt::Key_Return);
    }
    EXPECT_EQ(order.join(u' '), u"txtName cmbSex cmbSalary dtpDate updTime chkLocked optAnd lstType txtNote"_s);
    EXPECT_EQ(pressed, 0) << "a field's Enter must not press the default button";
    // In a text of several lines Enter is a new line, on a button it presses; Tab leaves both.
    EXPECT_EQ(form.ui->txtNote->toPlainText(), u"\n"_s);
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), form.ui->cmdOK);
    press(Qt::Key_Return);
    EXPECT_EQ(pressed, 1);

    form.ui->cmdClose->setEnabled(false);
    press(Qt::Key_Escape);
    EXPECT_TRUE(form.window()->isVisible());
    form.ui->cmdClose->setEnabled(true);
    press(Qt::Key_Escape);
    EXPECT_EQ(form.events.mid(form.events.size() - 2), QStringList({u"close"_s, u"unload"_s}));
}

TEST_F(FormTest, LooksAndWarnsAsEveryWindowDoes) {
    form.Load();
    form.window()->resize(4000, 3000);
    form.Show();
    EXPECT_TRUE(form.window()->screen()->availableGeometry().contains(form.window()->geometry()));
    EXPECT_EQ(form.ui->txtName->toolTip(), u"淡黄背景表示必填项"_s);
    EXPECT_EQ(form.ui->cmbSex->toolTip(), QString());
    const auto colour = [](QWidget* field) { return field->grab().toImage().pixelColor(field->rect().center()); };
    EXPECT_LT(colour(form.ui->txtName).blue(), 230);
    EXPECT_EQ(colour(form.ui->cmbSalary), QColor(Qt::white));
    PromptScript script;
    script.expect();
    form.warn(u"［薪资范围］输入不合法，请重新输入！"_s, form.ui->cmbSalary);
    EXPECT_EQ(script.last().style, 48);
    EXPECT_EQ(focused(), form.ui->cmbSalary);
}

TEST_F(FormTest, IsPlacedAndScrollsSoThatAllIsInReach) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    form.Show();
    QObject* fields = form.window()->layout()->itemAt(0)->layout();
    EXPECT_TRUE(fields) << "nothing changes where it fits";
    waitFor([this] { return form.window()->isActiveWindow(); });
    form.window()->move(screen.bottomRight() - QPoint(100, 100));
    frmInner& tall = frmInner::Default();
    tall.Show();
    EXPECT_EQ(QRect(tall.window()->pos(), tall.window()->size() + FrameAllowance).center(), screen.center())
        << "there is no room over the first window";
    tall.Unload();

    tall.Load();
    tall.ui->lstType->setMinimumHeight(screen.height());
    tall.ui->cmbSalary->setFocus();
    tall.Show();
    QWidget* window = tall.window();
    EXPECT_TRUE(screen.contains(QRect(window->pos(), window->size() + FrameAllowance)));
    waitFor([&] { return window->isActiveWindow(); });
    EXPECT_EQ(focused(), tall.ui->cmbSalary);
    const auto isInSight = [](QWidget* control) {
        bool inSight = true;
        for (QWidget* around = control->parentWidget(); around; around = around->parentWidget()) {
            inSight = inSight && around->rect().contains(QRect(control->mapTo(around, QPoint()), control->size()));
        }
        return inSight;
    };
    QString hidden;
    for (int i = 0; i < 12; ++i) {
        // Of what may be higher than the view, the row or the line with the cursor is enough.
        if (!isInSight(focused()) && focused() != tall.ui->lstType && focused() != tall.ui->txtNote) {
            hidden += focused()->objectName() + u' ';
        }
        EXPECT_TRUE(isInSight(tall.ui->cmdOK)) << "the buttons stay";
        press(Qt::Key_Tab);
    }
    EXPECT_EQ(hidden, QString());
    tall.ui->txtNote->setFocus();
    tall.ui->txtName->setFocus();
    EXPECT_TRUE(isInSight(tall.ui->txtName));
}

TEST_F(FormTest, WheelChangesNoFieldWithoutTheFocus) {
    form.Show();
    form.ui->cmbSex->AddItem(u"男"_s);
    form.ui->cmbSex->AddItem(u"女"_s);
    form.ui->cmbSex->setListIndex(0);
    form.ui->cmbSalary->AddItem(u"面议"_s);
    form.ui->txtName->setFocus();
    const QDate date = form.ui->dtpDate->date();
    // The notch on what lies under the mouse in the middle of the field; whether it was used.
    const auto turn = [](QWidget* field, int notch) {
        QWidget* under = field->childAt(field->rect().center());
        QWidget* target = under ? under : field;
        const QPointF middle = target->rect().center();
        QWheelEvent wheel(middle, target->mapToGlobal(middle), {}, QPoint(0, notch), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(target, &wheel);
        return wheel.isAccepted();
    };
    for (QWidget* field : {static_cast<QWidget*>(form.ui->cmbSex), static_cast<QWidget*>(form.ui->cmbSalary),
                           static_cast<QWidget*>(form.ui->dtpDate), static_cast<QWidget*>(form.ui->updTime)}) {
        EXPECT_FALSE(turn(field, -120)) << field->objectName().toStdString() << " keeps it from what scrolls";
        EXPECT_NE(field->focusPolicy() & Qt::WheelFocus, Qt::WheelFocus) << field->objectName().toStdString();
    }
    EXPECT_EQ(form.ui->cmbSex->ListIndex(), 0);
    EXPECT_EQ(form.ui->cmbSalary->text(), QString());
    EXPECT_EQ(form.ui->dtpDate->date(), date);
    EXPECT_EQ(form.ui->updTime->value(), 0);
    form.ui->cmbSex->setFocus();
    waitFor([this] { return form.ui->cmbSex->hasFocus(); });
    EXPECT_TRUE(turn(form.ui->cmbSex, -120));
    EXPECT_EQ(form.ui->cmbSex->ListIndex(), 1);
}

TEST_F(FormTest, OptionsAreOneTabStopAndArrowsGoRound) {
    form.Show();
    form.ui->optAnd->setChecked(true);
    form.ui->chkLocked->setFocus();
    const auto chosen = [this] { return form.ui->optAnd->isChecked() ? u"And "_s : u"OR "_s; };
    QString way;
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Right, Qt::Key_Down, Qt::Key_Left, Qt::Key_Up, Qt::Key_Right,
                              Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Backtab, Qt::Key_Return}) {
        press(key);
        way += focused()->objectName() + u'/' + chosen();
    }
    EXPECT_EQ(way,
              u"optAnd/And optOR/OR optAnd/And optOR/OR optAnd/And optOR/OR "
              "lstType/OR optOR/OR chkLocked/OR optOR/OR "_s);
    form.ui->optAnd->setEnabled(false);
    press(Qt::Key_Left);
    EXPECT_EQ(focused(), form.ui->optOR);
}

TEST_F(FormTest, ErrorThatLeavesAHandlerEndsTheProgram) {
    bool wentOn = false;
    form.atOK = [&] {
        frmInner::Default().ShowModal();
        wentOn = true;
    };
    PromptScript script;
    script.expect(vbOK, u"实时错误 '6':\n\n溢出"_s);
    whenModal<frmSample>([](frmSample& w) { click(w.ui->cmdOK); });
    whenModal<frmInner>([&](frmInner& w) {
        EXPECT_EQ(w.window()->windowHandle()->transientParent(), form.window()->windowHandle());
        EXPECT_THAT(Form::loaded(), ElementsAre(&form, &w));
        QTimer::singleShot(0, w.window(), [] { guarded([] { throw RuntimeError(errors::Overflow); }); });
        waitFor([&] { return !w.isLoaded(); });
    });
    EXPECT_THROW(form.ShowModal(), ProgramEnded);
    EXPECT_FALSE(wentOn);
    EXPECT_EQ(script.last().style, 16);
    EXPECT_THAT(programEnds(), ElementsAre(ProgramEnd::Failed));
    EXPECT_THAT(form.events, ElementsAre(u"load"_s)) << "no unload is raised";
}

TEST_F(FormTest, ErrorsOfTimersAndOutsideAnyHandlerAreCaught) {
    struct Thrower : QObject {
        bool event(QEvent*) override { throw RuntimeError(errors::InvalidUseOfNull); }
    } thrower;
    form.Show();
    PromptScript script;
    script.expect(vbOK, u"实时错误 '208':\n\n对象名 'Testing' 无效。"_s)
        .expect(vbOK, u"实时错误 '94':\n\n无效使用 Null"_s);
    form.atOK = [] { throw DatabaseError(208, u"对象名 'Testing' 无效。"_s, u"42S02"_s); };
    form.Timer1->start(1);
    waitFor([&] { return !programEnds().empty(); });
    QEvent event(QEvent::User);
    EXPECT_FALSE(QCoreApplication::sendEvent(&thrower, &event));
    EXPECT_THAT(programEnds(), ElementsAre(ProgramEnd::Failed, ProgramEnd::Failed));
}

TEST_F(FormTest, NoHandlerRunsBehindTheErrorBox) {
    struct ClickingBehind : PromptScript {
        QPushButton* button = nullptr;
        MsgBoxResult message(const QString&, int, const QString&) override {
            button->click();
            return vbOK;
        }
    } script;
    form.Show();
    script.button = form.ui->cmdOK;
    int runs = 0;
    form.atOK = [&] {
        ++runs;
        throw RuntimeError(errors::Overflow);
    };
    click(form.ui->cmdOK);
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(programEnds().size(), 1U);
}

TEST_F(FormTest, QuotesAreFoundInTextControlsOnly) {
    EXPECT_FALSE(HasQuoteInText(form)) << "not loaded";
    const std::pair<std::function<void()>, bool> steps[] = {
        {[&] { form.ui->txtName->setText(u"＇‘’"_s); }, false},
        {[&] { form.ui->cmbSalary->setText(u"'"_s); }, false},
        {[&] { form.ui->txtName->setText(u"O'Neil"_s); }, true},
        {[&] { form.ui->txtName->setEnabled(false); }, true},
        {[&] { form.ui->txtName->setObjectName(u"TxtName"_s); }, false},
        {[&] { form.ui->txtNote->setPlainText(u"a\n'"_s); }, true},
    };
    form.Load();
    for (const auto& [step, found] : steps) {
        step();
        EXPECT_EQ(HasQuoteInText(form), found);
    }
}

// The program's own ender, in a process of its own: no test replaces it here.
TEST(LastResortDeathTest, ProcessEndsAtOnceAndTellsTheSession) {
    const auto end = [](const std::function<void()>& how) {
        PromptScript script;
        script.expect();
        onProgramEnd([&](ProgramEnd way) {
            std::fputs(way == ProgramEnd::Orderly ? "kept" : qUtf8Printable(script.last().text), stderr);
        });
        how();
    };
    EXPECT_EXIT(end([] { endProgram(ProgramEnd::Orderly); }), ::testing::ExitedWithCode(0), "^kept$");
    const auto mainRoutine = [] { throw RuntimeError(errors::ConnectionClosed); };
    EXPECT_EXIT(end([&] { static_cast<Application*>(qApp)->run(mainRoutine); }), ::testing::ExitedWithCode(1), "3704");
}

}  // namespace
