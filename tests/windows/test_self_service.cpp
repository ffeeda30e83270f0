#include "assessment/frmmodel.h"
#include "assessment/frmtesting.h"
#include "assessment/testing_report.h"
#include "platform/moment.h"
#include "windows/journey_bank.h"
#include "workbench/frmlogin.h"

#include <QHeaderView>
#include <QTest>

namespace talvora::test {
namespace {

using namespace Qt::StringLiterals;

class SelfService : public JourneyTest {
 protected:
    SelfService() { setOption(u"intTimeInterval"_s, u"30"_s); }

    /// Fills the candidate's panel and runs `script` in the login window, which is gone for good afterwards.
    void atLogin(const std::function<void(frmLogin&)>& script) {
        whenModal<frmLogin>([&](frmLogin& login) {
            click(login.ui->optType1);
            type(login.ui->txtID, rightNumber);
            type(login.ui->txtName, u"张三"_s);
            script(login);
        });
        frmLogin::Default().ShowModal();
        EXPECT_TRUE(!frmLogin::Default().LoginPassed && strCurrentUser.isEmpty());
    }

    /// Enters as the candidate and runs `script` in the test window.
    void enter(const std::function<void(frmTesting&)>& script) {
        atLogin([&](frmLogin& login) {
            whenModal<frmTesting>(script);
            click(login.ui->cmdOK);
        });
    }
};

TEST_F(SelfService, SinglePaperFromEntryToVerdict) {
    PromptScript script;
    script.expect(vbOK, u"［身份证号］不合法，请重新输入！"_s);
    const auto sit = [](frmTesting& w) {
        EXPECT_FALSE(w.ui->txtID->isEnabled() || w.ui->txtName->isEnabled());
        choose(w.ui->cmbSex, u"女"_s);
        type(w.ui->txtAge, u"28"_s);
        choose(w.ui->cmbEducation, u"本科"_s);
        choose(w.ui->cmbPosition, u"||-销售专员"_s);
        choose(w.ui->cmbTypeName, u"|-责任心"_s);
        click(w.ui->cmdStart);
        EXPECT_EQ(w.ui->fg1->TextMatrix(1, 1) + w.ui->fg1->TextMatrix(4, 1), u"责任心B． 做法2"_s);
        clickCell(w.ui->fg1, 2, 1);
        EXPECT_EQ(marks(w.ui->fg1), u"---"_s);
        answer(w.ui->fg1, 1, u'D');
        answer(w.ui->fg1, 2, u'A');
        answer(w.ui->fg1, 2, u'C');
        QTest::mouseClick(w.ui->fg1->horizontalHeader()->viewport(), Qt::LeftButton, {}, {9, 9});
        EXPECT_EQ(marks(w.ui->fg1), u"DC-"_s);

        click(w.ui->cmdSubmit);
        EXPECT_EQ(w.ui->SSTab1->currentIndex(), 1);
        EXPECT_FALSE(w.ui->cmdSubmit->isEnabled() || w.ui->cmdStart->isEnabled() || w.Timer1->isActive());
        QStringList report = w.ui->txtTestingResult->toPlainText().split(u'\n');
        EXPECT_LE(qAbs(toMoment(report.takeAt(1).remove(u"测评时间："_s)).secsTo(presentMoment())), 5);
        EXPECT_EQ(report,
                  (QStringList{u"姓    名：张三"_s, u"测评类型：责任心"_s, u"测评得分：7"_s, u"测评结果：一般"_s}));
        click(w.ui->cmdClose);
    };
    atLogin([&](frmLogin& login) {
        retype(login.ui->txtID, u"440524188001010015"_s);
        click(login.ui->cmdOK);
        type(login.ui->txtID, rightNumber);
        whenModal<frmTesting>(sit);
        click(login.ui->cmdOK);
    });
    cTestings family;
    EXPECT_EQ(testingReport(u"张三"_s, u"10:00"_s, u"责任心"_s, family.Find(1, {})),
              u"姓    名：张三\r\n测评时间：10:00\r\n测评类型：责任心\r\n测评得分：7\r\n测评结果：一般"_s);
    EXPECT_EQ(
        rowsOf(u"select TestingNumber, IdNumber, Name, Sex, Age, Education, PostName, Salary, TypeName, TypeCode, "
               u"ExamQuestions, FactQuestions, Score, TestingResult, SolutionID from TestingResult"_s),
        u"1|440524188001010014|张三|女|28|本科|销售专员|2000~4000|责任心|001001|3|2|7|一般|0"_s);
    EXPECT_EQ(
        rowsOf(u"select QuestionName, Answer4, Answer5, SelectAnswer, Score from TestingResultDetail order by ID"_s),
        u"ZR-1 第1题|做法4|null|D|4\nZR-1 第2题|做法4|null|C|3\nZR-1 第3题|做法4|null||null"_s);
}

TEST_F(SelfService, ModelFromItsDialogToTheTable) {
    enter([](frmTesting& w) {
        choose(w.ui->cmbTypeName, u"|-销售经理模型"_s);
        EXPECT_FALSE(w.ui->cmbExamNum->isEnabled());
        QString logicPaper;
        whenModal<frmModel>([&](frmModel& model) {
            EXPECT_EQ(model.ui->fg1->TextMatrix(1, 2) + model.ui->fg1->TextMatrix(2, 2), u"ZR-1"_s);
            logicPaper = model.ui->fg1->TextMatrix(4, 2);
            click(model.ui->cmdOK);
        });
        click(w.ui->cmdStart);
        EXPECT_EQ(w.ui->lblTime->text(), u"21"_s);
        EXPECT_TRUE(w.ui->fg1->TextMatrix(18, 1).startsWith(logicPaper));
        for (int question = 1; question <= 5; ++question) {
            answer(w.ui->fg1, question, question <= 3 ? u'D' : u'B');
        }
        click(w.ui->cmdSubmit);
        const QStringList report = w.ui->txtTestingResult->toPlainText().split(u'\n');
        EXPECT_EQ(report.mid(3),
                  (QStringList{u"测评得分：7"_s, u"测评结果："_s, QString(66, u'-'), u"测评要素\t测评分数\t测评结果"_s,
                               u"职业素养\t6\t"_s, u"责任心\t12\t优秀"_s, u"专业能力\t1\t"_s, u"逻辑推理\t4\t一般"_s,
                               QString()}));
        click(w.ui->cmdClose);
    });
    EXPECT_EQ(rowsOf(u"select TypeCode, TypeName, SolutionID, Version, Score, TestingResult from TestingResult where "
                     u"TestingNumber=1 order by TypeCode"_s),
              u"null|销售经理模型|1|1.0|7|null\n001|职业素养|1|null|6|null\n001001|责任心|1|null|12|优秀\n"
              u"002|专业能力|1|null|1|null\n002001|逻辑推理|1|null|4|一般"_s);
}

TEST_F(SelfService, SecondTestWithinTheIntervalIsRefused) {
    const auto minutesAgo = [](int minutes) { return momentText(presentMoment().addSecs(-60 * minutes)); };
    cnnPublic.Execute(
        u"insert into TestingResult (TestingNumber, IdNumber, TestingDate) values (1, '%1', '2020-01-01 00:00:00'), "
        "(2, '%1', '%2')"_s.arg(rightNumber, minutesAgo(29)));
    PromptScript script;
    script.expect(vbOK, u"在［30］分钟内不能连续进行两次测评！"_s);
    atLogin([&](frmLogin& login) {
        click(login.ui->cmdOK);
        EXPECT_EQ(login.ui->txtID->text() + login.ui->txtName->text(), rightNumber + u"张三"_s) << "as they were";
        cnnPublic.Execute(u"update TestingResult set TestingDate='"_s + minutesAgo(31) + u"' where TestingNumber=2"_s);
        whenModal<frmTesting>([](frmTesting& w) {
            click(w.ui->cmdStart);
            answer(w.ui->fg1, 1, u'A');
            w.window()->close();
        });
        click(login.ui->cmdOK);
    });
    EXPECT_EQ(rowsOf(u"select count(*) from TestingResult"_s), u"2"_s) << "closing the window stores nothing";
}

// From the first field to the verdict with no mouse: Enter moves on, arrows choose, Space marks.
TEST_F(SelfService, KeyboardAlone) {
    const auto keys = [](std::initializer_list<Qt::Key> series) {
        for (const Qt::Key key : series) {
            press(key);
        }
        return focused();
    };
    enter([&](frmTesting& w) {
        QString walked;
        for (int i = 0; i < 9 && focused() != w.ui->cmbTypeName; ++i) {
            walked += focused()->objectName() + u' ';
            press(Qt::Key_Return);
        }
        EXPECT_EQ(walked, u"cmbSex txtAge cmbEducation cmbPosition cmbSalary "_s);
        keys({Qt::Key_Home, Qt::Key_Down});  // to the first subtype
        EXPECT_EQ(keys({Qt::Key_Return, Qt::Key_Return}), w.ui->cmdStart);
        ASSERT_EQ(keys({Qt::Key_Return}), w.ui->fg1);
        keys({Qt::Key_Down, Qt::Key_Down, Qt::Key_Space});
        keys({Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Space});
        EXPECT_EQ(marks(w.ui->fg1), u"CB-"_s);
        ASSERT_EQ(keys({Qt::Key_Return}), w.ui->cmdSubmit);
        keys({Qt::Key_Space, Qt::Key_Space});  // a second press harms not
        w.window()->close();
    });
    EXPECT_EQ(rowsOf(u"select Name, Score from TestingResult"_s), u"张三|5"_s);
}

}  // namespace
}  // namespace talvora::test
