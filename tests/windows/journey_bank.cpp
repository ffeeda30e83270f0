#include "windows/journey_bank.h"

#include "organisation/cposition.h"
#include "settings/coption.h"
#include "testbank/cexamination.h"
#include "testbank/ctestingtype.h"
#include "toolkit/look/icons.h"

#include <QAbstractButton>
#include <QTest>

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

void done(Status status) {
    ASSERT_EQ(status, Status::Done);
}

void addPaper(const QString& typeCode, const QString& number, int answers, int count, qint16 minutes) {
    cExamination paper;
    paper.TypeCode = typeCode;
    paper.ExaminationNum = number;
    paper.AnswerAmount = static_cast<qint16>(answers);
    paper.TestingTime = minutes;
    paper.Status = u"1 - 已完成"_s;
    cQuestions questions;
    for (int i = 1; i <= count; ++i) {
        auto question = std::make_shared<cQuestion>();
        question->QuestionID = static_cast<qint16>(i);
        question->QuestionName = u"%1 第%2题"_s.arg(number).arg(i);
        for (int a = 0; a < answers; ++a) {
            const auto at = static_cast<std::size_t>(a);
            (*question).*questionAnswers[at] = u"%1．做法%2"_s.arg(QChar(u'A' + a)).arg(a + 1);
            (*question).*questionScores[at] = static_cast<qint16>(a + 1);
        }
        questions.Add(question);
    }
    done(paper.AddNew(questions));
}

/// The grid rows of the questions, by the number that only they have in column 0.
std::vector<int> questionRows(const FlexGrid* grid) {
    std::vector<int> rows;
    for (int row = 1; row < grid->Rows(); ++row) {
        if (!grid->TextMatrix(row, 0).isEmpty()) {
            rows.push_back(row);
        }
    }
    return rows;
}

}  // namespace

JourneyTest::JourneyTest() {
    const std::pair<QString, QString> types[] = {{u"职业素养"_s, {}},       {u"专业能力"_s, {}},
                                                 {u"责任心"_s, u"001"_s},   {u"诚信"_s, u"001"_s},
                                                 {u"逻辑推理"_s, u"002"_s}, {u"沟通"_s, u"002"_s}};
    for (const auto& [name, parent] : types) {
        done(cTestingType().AddNew(parent.isEmpty() ? u"parent"_s : u"child"_s, parent, name));
    }
    addPaper(u"001001"_s, u"ZR-1"_s, 4, 3, 20);
    addPaper(u"001002"_s, u"CX-1"_s, 4, 1, 20);
    addPaper(u"002001"_s, u"LJ-1"_s, 2, 2, 1);
    addPaper(u"002001"_s, u"LJ-2"_s, 2, 2, 1);
    addPaper(u"002002"_s, u"GT-1"_s, 5, 2, 0);
    cnnPublic.Execute(
        u"update Examination set ScoreScope1='0-3', ScoreScope2='4-7', ScoreScope3='8-15', ScoreScope4='-', "
        "DescScope1='较差', DescScope2='一般', DescScope3='优秀'"_s);
    cnnPublic.Execute(u"update Examination set Status='0 - 建立中' where ExaminationNum='CX-1'"_s);
    done(cPosition::AddNew(u"parent"_s, QString(), u"总经理"_s, 1));
    done(cPosition::AddNew(u"child"_s, u"001"_s, u"销售经理"_s, 3));
    done(cPosition::AddNew(u"child"_s, u"001001"_s, u"销售专员"_s, 9));
    cnnPublic.Execute(
        u"insert into TestingSolution (SolutionName, PostName, Version) values ('销售经理模型', '销售经理', '1.0')"_s);
    cnnPublic.Execute(
        u"insert into TestingSolutionDetail (SolutionID, TypeCode, TypeName, Score, Weighing) values "
        "(1,'001','职业素养',5,0.5), (1,'001001','责任心',5,0.5), (1,'002','专业能力',5,0.25), "
        "(1,'002001','逻辑推理',5,0.25)"_s);
}

void setOption(const QString& name, const QString& value) {
    done(cOption::Update(name, value));
}

void choose(ComboBox* list, const QString& text) {
    ASSERT_TRUE(list->isVisible() && list->isEnabled()) << list->objectName().toStdString();
    const int wanted = list->findText(text);
    ASSERT_GE(wanted, 0) << "no item " << text.toStdString();
    list->setFocus();
    while (list->ListIndex() != wanted) {
        const int before = list->ListIndex();
        QTest::keyClick(list, before < wanted ? Qt::Key_Down : Qt::Key_Up);
        ASSERT_NE(list->ListIndex(), before);
    }
}

void refuses(QAbstractButton* button, const QString& words, const QWidget* field) {
    PromptScript script;
    script.expect(vbOK, words);
    click(button);
    EXPECT_EQ(button->window()->focusWidget(), field) << words.toStdString();
    EXPECT_EQ(script.last().style, vbExclamation) << words.toStdString();
}

void clickCell(FlexGrid* grid, int row, int col) {
    ASSERT_TRUE(grid->isVisible() && grid->isEnabled());
    grid->Select(row, col);
    const QRect cell = grid->CellRect(row, col);
    ASSERT_TRUE(grid->viewport()->rect().contains(cell.center())) << "row " << row << " is out of view";
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell.center());
}

void answer(FlexGrid* grid, int number, QChar letter) {
    clickCell(grid, questionRows(grid).at(static_cast<std::size_t>(number - 1)) + 1 + letter.unicode() - u'A', 1);
}

QString marks(const FlexGrid* grid) {
    const QImage marked = icon(u"radio-on"_s).pixmap(16, 16).toImage();
    QString letters;
    for (const int question : questionRows(grid)) {
        QString found;
        for (int row = question + 1; row < grid->Rows() && !grid->CellPicture(row, 1).isNull(); ++row) {
            if (grid->CellPicture(row, 1).pixmap(16, 16).toImage() == marked) {
                found += grid->TextMatrix(row, 1).left(1);
            }
        }
        letters += found.isEmpty() ? u"-"_s : found;
    }
    return letters;
}

}  // namespace talvora::test
