#pragma once

#include "testbank/cquestion.h"
#include "toolkit/forms/form.h"
#include "ui_frmquestion.h"

#include <array>

namespace talvora {

/// The dialog for one question of the paper editor. It touches no table: the question goes back through `Questions`.
class frmQuestion : public DesignedForm<frmQuestion, Ui::frmQuestion> {
 public:
    /// Add a question, or change the first of `Questions`. To be written before the dialog is shown.
    bool AddMode = false;
    /// How many answers the paper's questions have, 2 to 5. The fields of the others are off.
    qint16 AnswerAmount = 0;
    /// After Command1 its first item is the question, with bare answers and no labels. Nothing empties the list when
    /// the dialog opens or is closed otherwise, so after an earlier add it still holds that question; that is meant.
    cQuestions Questions;

 protected:
    void wire() override;
    void Form_Load() override;

 private:
    struct AnswerFields {
        QLineEdit* text;
        QLineEdit* score;
    };
    /// A to E.
    std::array<AnswerFields, mostAnswerAmount> answerFields() const;

    bool passesChecks();
    bool passesAnswerChecks();
    bool passesEntry(int answer);
    bool passesNumber(int answer);
    void Command1_Click();
};

}  // namespace talvora
