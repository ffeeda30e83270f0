#include "assessment/question_sheet.h"

#include "platform/numbers.h"
#include "platform/text.h"
#include "testbank/ctestingtype.h"
#include "toolkit/look/icons.h"

#include <algorithm>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int numberCol = 0;
constexpr int textCol = 1;
constexpr qsizetype labelLength = 3;  // letter, full-width stop, blank

QChar letter(int answer) {
    return QChar(u'A' + answer);
}

}  // namespace

QuestionSheet::QuestionSheet(FlexGrid* grid)
    : grid_(grid), imgRadio1_(icon(u"radio-off"_s)), imgRadio2_(icon(u"radio-on"_s)) {
    grid_->setFormatString(u"  题号  |试题"_s);
    grid_->setColAlignment(numberCol, GridAlign::CenterTop);
    grid_->setColWordWrap(textCol, true);
    grid_->setStretchCol(textCol);
    clear();
}

void QuestionSheet::clear() {
    grid_->setRows(grid_->FixedRows());
}

void QuestionSheet::addRow(const QString& number, const QString& text) {
    // Not as one text with tabs: a question may hold a tab, and its text has to stay whole to be scored.
    grid_->AddItem(number);
    grid_->setTextMatrix(grid_->Rows() - 1, textCol, text);
}

void QuestionSheet::addQuestion(int number, int answerAmount, const cQuestion& question) {
    addRow(signedNumberText(number), question.QuestionName);
    // There is always an A and a B, and nothing behind E. A paper that is told to have fewer answers or more, which its
    // editor does not make, is nevertheless stepped through by that number when its answers are gathered.
    for (int answer = 0; answer < answersInUse(answerAmount); ++answer) {
        addRow(QString(), letter(answer) + u"． "_s + question.*questionAnswers[static_cast<std::size_t>(answer)]);
        unmark(grid_->Rows() - 1);
    }
}

qint16 QuestionSheet::addSection(const QString& heading, int answerAmount, const cQuestions& questions) {
    addRow(QString(), heading);
    grid_->setCellAlignment(grid_->Rows() - 1, textCol, GridAlign::CenterCenter);
    grid_->setCellFontBold(grid_->Rows() - 1, textCol, true);
    int number = 0;
    for (const auto& question : questions) {
        addQuestion(++number, answerAmount, *question);
    }
    return toInt16(number);
}

void QuestionSheet::goToFirstAnswer() {
    constexpr int firstAnswer = 3;  // below the header, the heading and the question
    grid_->Select(std::min(firstAnswer, grid_->Rows() - 1), textCol);
}

void QuestionSheet::mark(int row) {
    grid_->setCellPicture(row, textCol, imgRadio2_);
}

void QuestionSheet::unmark(int row) {
    grid_->setCellPicture(row, textCol, imgRadio1_);
}

QString QuestionSheet::text(int row) const {
    return row < grid_->Rows() ? grid_->TextMatrix(row, textCol) : QString();
}

void QuestionSheet::toggle(int row) {
    if (row < grid_->FixedRows() || row >= grid_->Rows() || grid_->CellPicture(row, textCol).isNull()) {
        return;
    }
    if (grid_->CellPicture(row, textCol).cacheKey() != imgRadio1_.cacheKey()) {
        unmark(row);
        return;
    }
    mark(row);
    const QString chosen = text(row).left(1);
    const int answer = chosen[0].unicode() - u'A';
    grid_->setRowData(row - answer - 1, chosen);
    for (int other = 0; other < answer; ++other) {
        unmark(row - answer + other);
    }
    for (int other = answer + 1; other < mostAnswerAmount; ++other) {
        const int below = row + other - answer;
        // A B below an A is always there. For the others the bound leaves out the grid's very last row.
        const bool isB = other == 1;
        if (isB || (below < grid_->Rows() - 1 && text(below).startsWith(letter(other)))) {
            unmark(below);
        }
    }
}

cTestingDetails QuestionSheet::answers(const cTestings& sections) const {
    cTestingDetails details;
    int row = 2;  // below the header and the first heading
    for (const auto& section : sections) {
        if (section->TypeCode.size() <= mainTypeCodeLength) {
            continue;
        }
        const qint16 amount = toInt16(leadingNumber(section->TestingDesc));
        for (int question = 0; question < section->ExamQuestions; ++question, row += amount + 1) {
            auto detail = std::make_shared<cTestingDetail>();
            if (amount >= leastAnswerAmount && amount <= mostAnswerAmount) {
                detail->ID = row;
                detail->ExaminationID = toInt16(section->ExaminationID);
                detail->QuestionName = text(row);
                for (int answer = 0; answer < amount; ++answer) {
                    (*detail).*detailAnswers[static_cast<std::size_t>(answer)] =
                        dropLeft(text(row + answer + 1), labelLength);
                }
                detail->SelectAnswer = row < grid_->Rows() ? grid_->RowData(row) : QString();
            }
            details.Add(detail);
        }
        ++row;
    }
    return details;
}

}  // namespace talvora
