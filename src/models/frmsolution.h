#pragma once

#include "models/cdimension.h"
#include "models/csolution.h"
#include "toolkit/forms/form.h"
#include "ui_frmsolution.h"

namespace talvora {

/// The editor of a competency model: its head, and a grid of its dimensions and elements with their scores and
/// weights. Only Command1 touches the tables. Escape does nothing, so that a slip of the hand loses no work.
class frmSolution : public DesignedForm<frmSolution, Ui::frmSolution> {
 public:
    /// Add a model, or edit the one of `SolutionIDOf`. To be written before the window is shown.
    bool AddMode = false;
    qint16 SolutionIDOf = 0;

 protected:
    void wire() override;
    void Form_Load() override;

 private:
    // The head.
    void wireToolbar();
    void InitializeForm(bool addMode, qint16 solutionId);
    void fillPositions();
    void showModel(qint16 solutionId);
    void UpDown1_UpClick();
    void UpDown1_DownClick();

    // The lines.
    void Toolbar1_ButtonClick(const QString& key);
    void add1();
    void edit1();
    void del1();
    void add2();
    void edit2();
    void del2();
    void fg2_Click();
    void fg2_DblClick();
    void setLineButton(const QString& key, bool enabled);
    void DisableLineButtons();
    void goToFirstLine();

    // Saving.
    bool passesChecks();
    cSolution head() const;
    void Command1_Click();
};

}  // namespace talvora
