#pragma once

#include "testbank/cexamination.h"
#include "testbank/score_bands.h"
#include "toolkit/forms/form.h"
#include "ui_frmexamination.h"

#include <array>
#include <memory>

namespace talvora {

/// The dialog in which a test paper is put together: its subtype, its score bands with their words, its questions.
/// Only OK touches the tables. Escape does nothing, so that a slip of the hand loses no work.
class frmExamination : public DesignedForm<frmExamination, Ui::frmExamination> {
 public:
    bool AddMode = false;
    qint16 ExaminationIDOf = 0;  ///< the paper to edit

 protected:
    void wire() override;
    void Form_Load() override;

 private:
    struct BandFields {
        QLineEdit* lower;
        QLineEdit* upper;
        ComboBox* word;
    };
    std::array<BandFields, scoreBandCount> bandFields() const;
    QString typeCodeOf(int entry) const;

    void fillTypes();
    void cmbTestingType_Click();
    void InitializeForm();
    void startPaper();
    void showPaper();
    void showBands(const cExamination& paper);

    // The question grid.
    qint16 answerAmount() const;
    void setUpQuestions();
    void addQuestionRows(int number, const cQuestion& question, QChar dot);
    void writeQuestion(int row, const cQuestion& question, QChar dot);
    std::shared_ptr<cQuestion> readQuestion(int row) const;
    int currentBlock() const;
    void updateEditButton();
    void Toolbar1_ButtonClick(const QString& key);
    void addQuestion();
    void editQuestion();
    void deleteQuestion();

    // OK.
    ScoreBands bands() const;
    bool passesChecks();
    cQuestions questions() const;
    cExamination paper(const QString& status) const;
    void Command1_Click();
};

}  // namespace talvora
