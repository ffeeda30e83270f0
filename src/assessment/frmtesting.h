#pragma once

#include "assessment/question_sheet.h"
#include "results/ctesting.h"
#include "toolkit/forms/form.h"
#include "ui_frmtesting.h"

#include <QTimer>

#include <memory>
#include <optional>

namespace talvora {

/// The window in which tests are taken: the candidate's particulars, the timed run, the submission and the report.
/// An operator opens it empty and runs one candidate after another; the self-service login hands over identity number
/// and name first.
class frmTesting : public DesignedForm<frmTesting, Ui::frmTesting> {
 public:
    /// Self-service: the candidate, whose fields then come filled and disabled. `Name` counts only with an `IDNumber`.
    QString IDNumber;
    QString Name;

    /// Ticks once a minute during a run with a time limit. Lives while the form is loaded.
    QTimer* Timer1 = nullptr;

 protected:
    void wire() override;
    void Form_Load() override;

 private:
    // Before the run.
    void fillChoices();
    void fillTestTree();
    void fillPositions();
    void fillModels(const std::optional<QString>& postName);
    void cmbPostName_Click();
    void cmbTypeName_Click();
    bool passesChecks();
    void cmdNew_Click();

    // The run.
    void cmdStart_Click();
    void startPaper(const QString& typeCode);
    void startModel(qint16 solutionId);
    void loadSection(cTesting& section, qint16 examinationId, qint16 answerAmount);
    void SetRunState(bool running);
    void fg1_Click();
    void Timer1_Timer();

    // The submission.
    void cmdSubmit_Click();
    cTesting particulars() const;
    QString typeNameChosen() const;
    QString itemCode() const;

    bool blnPostRelational_ = false;
    bool blnIsModel_ = false;
    /// One item for each paper of the run. After a model's dialog this is that dialog's own list.
    std::shared_ptr<cTestings> objTestings_ = std::make_shared<cTestings>();
    std::unique_ptr<QuestionSheet> sheet_;
};

}  // namespace talvora
