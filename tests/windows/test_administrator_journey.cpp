#include "assessment/frmmodel.h"
#include "assessment/frmtesting.h"
#include "models/frmdimension.h"
#include "models/frmelements.h"
#include "models/frmsolution.h"
#include "models/importance.h"
#include "organisation/frmposition.h"
#include "testbank/frmexamination.h"
#include "testbank/frmquestion.h"
#include "testbank/frmtypechild.h"
#include "testbank/frmtypeparent.h"
#include "windows/grid_listing.h"
#include "windows/journey_bank.h"
#include "workbench/frmmain.h"

#include <QAbstractButton>
#include <QToolButton>

namespace talvora::test {
namespace {

using namespace Qt::StringLiterals;

/// An administrator in the workbench, on tables that hold nothing but what an installation puts there.
class AdministratorJourney : public WindowTest {
 protected:
    AdministratorJourney() {
        strCurrentUser = u"admin"_s;
        main.Show();
    }
    ~AdministratorJourney() override { strCurrentUser.clear(); }

    /// Presses a toolbar's button, with a script for the window that it opens.
    template <class F>
    static void press(ToolBar* bar, const QString& key, std::function<void(F&)> script) {
        whenModal<F>(std::move(script));
        click(bar->button(key));
    }

    static void fill(std::initializer_list<std::pair<QWidget*, QString>> fields) {
        for (const auto& [field, text] : fields) {
            type(field, text);
        }
    }

    void addSubtype(const QString& name, const QString& code) {
        clickCell(main.ui->fg, 1, 1);
        press<frmTypeChild>(main.ui->tbrTestingType, u"type2"_s, [&](frmTypeChild& w) {
            EXPECT_EQ(w.ui->cmbType->text() + w.ui->txtTypeCode->text(), u"职业素养"_s + code);
            fill({{w.ui->txtTypeName, name}, {w.ui->cmbResult1, u"优秀"_s}, {w.ui->cmbResult2, u"一般"_s}});
            click(w.ui->Command1);
        });
    }
    /// A finished paper of one question whose answers have these scores. Up to 8 points are "一般", 9 "优秀".
    void addPaper(const QString& subtype, const QString& number, const QStringList& scores) {
        press<frmExamination>(main.ui->tbrTestingType, u"type3"_s, [&](frmExamination& w) {
            choose(w.ui->cmbTestingType, subtype);
            fill({{w.ui->txtExaminationNum, number}, {w.ui->txtScope10, u"0"_s}, {w.ui->txtScope11, u"8"_s}});
            choose(w.ui->cmbTestingResult0, u"一般"_s);
            fill({{w.ui->txtScope20, u"9"_s}, {w.ui->txtScope21, u"9"_s}});
            choose(w.ui->cmbTestingResult1, u"优秀"_s);
            for (auto more = scores.size(); more > 2; --more) {
                click(w.ui->UpDown1->findChildren<QAbstractButton*>().first());
            }
            press<frmQuestion>(w.ui->Toolbar1, u"add"_s, [&](frmQuestion& q) {
                QLineEdit* const texts[] = {q.ui->txtAnswerA, q.ui->txtAnswerB, q.ui->txtAnswerC};
                QLineEdit* const points[] = {q.ui->txtScoreA, q.ui->txtScoreB, q.ui->txtScoreC};
                type(q.ui->txtQuestionName, u"题目"_s + number);
                for (qsizetype i = 0; i < scores.size(); ++i) {
                    fill({{texts[i], u"得%1分"_s.arg(scores[i])}, {points[i], scores[i]}});
                }
                click(q.ui->Command1);
            });
            prompts.expect(vbNo, u"如果暂时保存本试卷，请选择［是］；如果确信本试卷已设置完整，请选择［否］！"_s);
            prompts.expect(vbOK, u"增加成功！"_s);
            click(w.ui->Command1);
        });
    }
    /// A model of one dimension with two elements, whose importances score 1.5 and 7.5.
    void addModel() {
        press<frmSolution>(main.ui->tbrSolution, u"add"_s, [](frmSolution& w) {
            type(w.ui->txtSolution, u"销售经理模型"_s);
            choose(w.ui->cmbPostName, u"销售经理"_s);
            press<frmDimension>(w.ui->Toolbar1, u"add1"_s, [](frmDimension& dialog) {
                choose(dialog.ui->cmbImportant, importanceEntries()[1]);
                click(dialog.ui->Command1);
            });
            for (const auto& [entry, importance] : {std::pair(u"001001 责任心"_s, 0), {u"001002 诚信"_s, 3}}) {
                press<frmElements>(w.ui->Toolbar1, u"add2"_s, [&](frmElements& dialog) {
                    EXPECT_EQ(dialog.ui->cmbType->text(), u"001 职业素养"_s);
                    choose(dialog.ui->cmbElements, entry);
                    choose(dialog.ui->cmbImportant, importanceEntries()[importance]);
                    click(dialog.ui->Command1);
                });
            }
            click(w.ui->Command1);
        });
    }
    void testCandidate() {
        press<frmTesting>(main.ui->tbrTesting, u"add"_s, [&](frmTesting& w) {
            fill({{w.ui->txtID, rightNumber}, {w.ui->txtName, u"张三"_s}, {w.ui->txtAge, u"28"_s}});
            choose(w.ui->cmbEducation, u"本科"_s);
            choose(w.ui->cmbPosition, u"销售经理"_s);
            choose(w.ui->cmbSalary, u"4000~6000"_s);
            choose(w.ui->cmbTypeName, u"|-销售经理模型"_s);
            whenModal<frmModel>([](frmModel& dialog) { click(dialog.ui->cmdOK); });
            click(w.ui->cmdStart);
            EXPECT_EQ(w.ui->lblTime->text(), u"20"_s) << "ten minutes a paper";
            answer(w.ui->fg1, 1, u'B');
            answer(w.ui->fg1, 2, u'C');
            click(w.ui->cmdSubmit);
            EXPECT_TRUE(
                w.ui->txtTestingResult->toPlainText().endsWith(u"职业素养\t9\t\n责任心\t8\t一般\n诚信\t9\t优秀\n"_s));
            click(w.ui->cmdClose);
        });
    }

    EmbeddedDatabase database;
    PromptScript prompts;
    frmMain& main = frmMain::Default();
};

// The answers score 8 and 9, the model 8 x .1667 + 9 x .8333 = 8.8333, which is shown as 9.
TEST_F(AdministratorJourney, FromEmptyTablesToTheScoresOfAModel) {
    main.ui->mnuTestingType->trigger();
    press<frmTypeParent>(main.ui->tbrTestingType, u"type1"_s, [](frmTypeParent& w) {
        type(w.ui->txtName, u"职业素养"_s);
        click(w.ui->Command1);
        click(w.ui->Command2);
    });
    addSubtype(u"责任心"_s, u"001001"_s);
    addSubtype(u"诚信"_s, u"001002"_s);
    addPaper(u" |-责任心"_s, u"ZR-1"_s, {u"2"_s, u"8"_s});
    addPaper(u" |-诚信"_s, u"CX-1"_s, {u"1"_s, u"4"_s, u"9"_s});
    main.ui->mnuPosition->trigger();
    press<frmPosition>(main.ui->tbrPosition, u"type1"_s, [](frmPosition& w) {
        fill({{w.ui->txtName, u"销售经理"_s}, {w.ui->txtPeoples, u"3"_s}});
        click(w.ui->cmdOK);
    });
    EXPECT_EQ(listing(*main.ui->fg), u"1 001|销售经理|3"_s);
    main.ui->mnuSolution->trigger();
    addModel();
    EXPECT_EQ(rowsOf(u"select TypeCode, Score, Weighing from TestingSolutionDetail"_s),
              u"001|3.5|1\n001001|1.5|0.1667\n001002|7.5|0.8333"_s);
    main.ui->mnuTesting->trigger();
    testCandidate();
    EXPECT_EQ(rowsOf(u"select TypeCode, TypeName, SolutionID, ExamQuestions, FactQuestions, Score, "
                     "TestingResult from TestingResult where TestingNumber = 1 order by TypeCode"_s),
              u"null|销售经理模型|1|null|null|8.8333|null\n001|职业素养|1|0|null|8.8333|null\n"
              "001001|责任心|1|1|1|8|一般\n001002|诚信|1|1|1|9|优秀"_s);
    click(main.ui->tbrTesting->button(u"detail"_s));
    EXPECT_EQ(listing(*main.ui->fgDetail),
              u"1 销售经理模型|||||||9\n2 职业素养|||||||9 #d3d8e0\n3 责任心|||||||8 #ffffc0\n"
              "- 题目ZR-1|得2分|得8分||||B|8 #ff0000 none\n3 诚信|||||||9 #ffffc0\n"
              "- 题目CX-1|得1分|得4分|得9分|||C|9 #ff0000 none"_s);
}

}  // namespace
}  // namespace talvora::test
