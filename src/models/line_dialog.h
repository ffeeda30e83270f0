#pragma once

#include "models/cdimension.h"
#include "models/importance.h"
#include "models/line_text.h"
#include "toolkit/controls/combobox.h"
#include "toolkit/forms/form.h"

#include <QLineEdit>
#include <QPushButton>

namespace talvora {

/// What the two dialogs that pick a line of a model have in common: what goes in and out, and the score under its word.
/// They touch no table.
template <class F, class Ui>
class LineDialog : public DesignedForm<F, Ui> {
 public:
    /// Add a line, or edit the one in `InputLines`. To be written before the dialog is shown.
    bool AddMode = false;
    /// The model's lines when adding, dimensions first; the one line when editing.
    cDimensions InputLines;
    /// The line chosen, with its code, name and score; empty when the user closed the dialog. Readable until the next
    /// opening.
    cDimensions ResultLines;

 protected:
    void wire() override {
        this->on(this->ui->cmbImportant, &ComboBox::Click, &LineDialog::cmbImportant_Click);
        this->on(this->ui->Command1, &QPushButton::clicked, &LineDialog::Command1_Click);
        this->on(this->ui->Command2, &QPushButton::clicked, &LineDialog::Command2_Click);
    }

    void Form_Load() override {
        ResultLines.Clear();
        for (const QString& entry : importanceEntries()) {
            this->ui->cmbImportant->AddItem(entry);
        }
    }

    virtual void Command1_Click() = 0;

    /// Whether the score is a number in the band of the chosen word. It warns when it is not.
    bool passesScore() {
        const QString refusal = scoreRefusal(this->ui->cmbImportant->text(), this->ui->txtScore->text());
        if (!refusal.isEmpty()) {
            this->warn(refusal, this->ui->txtScore);
        }
        return refusal.isEmpty();
    }

    /// Closes the dialog with the line that stands in an entry of a list.
    void handBack(const QString& entry, qsizetype codeDigits) {
        ResultLines.Clear();
        ResultLines.Add(lineOf(entry, codeDigits, this->ui->txtScore->text()));
        this->Unload();
    }

 private:
    // The word always sets the middle of its band, whatever number has been typed.
    void cmbImportant_Click() { this->ui->txtScore->setText(middleScoreOf(this->ui->cmbImportant->text())); }

    void Command2_Click() {
        ResultLines.Clear();
        this->Unload();
    }
};

}  // namespace talvora
