#pragma once

#include "results/ctesting.h"
#include "results/ctestingdetail.h"
#include "testbank/cquestion.h"
#include "toolkit/grid/flexgrid.h"

#include <QIcon>
#include <QString>

namespace talvora {

/// The questions of a run in a grid, which is the only store of the answers until they are submitted: for each paper
/// a heading, and below it each question with one row for each answer. Column 0 is the question's number in its paper,
/// column 1 the text; the letter of the answer given is the row data of the question. An answer row is known by its
/// picture: marked or not.
class QuestionSheet {
 public:
    /// Takes over `grid` (not owned) and empties it.
    explicit QuestionSheet(FlexGrid* grid);

    /// Leaves the header row alone.
    void clear();

    /// Adds the section of one paper and tells how many questions it has. `answerAmount` answers a question, 2 to 5.
    qint16 addSection(const QString& heading, int answerAmount, const cQuestions& questions);

    /// Makes the first answer the current cell, for the keyboard to start from.
    void goToFirstAnswer();

    /// A click on `row`: marks the answer that stands there, or takes its mark off. A row that is no answer, and a
    /// number outside the grid, do nothing. Taking a mark off leaves the answer given with its question, which is
    /// meant; so is that another answer's mark in the grid's very last row stays, unless it is a B.
    void toggle(int row);

    /// The answers of the run. `sections` are its papers in their order, with the answers a question in `TestingDesc`
    /// and the number of questions in `ExamQuestions`; items with the code of a main type, or a shorter one, have no
    /// section. Rows that are no longer there count as empty.
    cTestingDetails answers(const cTestings& sections) const;

 private:
    void addRow(const QString& number, const QString& text);
    void addQuestion(int number, int answerAmount, const cQuestion& question);
    void mark(int row);
    void unmark(int row);
    QString text(int row) const;

    FlexGrid* grid_;
    QIcon imgRadio1_;  // not marked
    QIcon imgRadio2_;  // marked
};

}  // namespace talvora
