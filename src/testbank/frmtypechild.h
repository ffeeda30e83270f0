#pragma once

#include "testbank/ctestingtype.h"
#include "toolkit/forms/form.h"
#include "ui_frmtypechild.h"

#include <array>

namespace talvora {

/// The dialog for a subtype: its main type, its two to four evaluation words and what they mean.
class frmTypeChild : public DesignedForm<frmTypeChild, Ui::frmTypeChild> {
 public:
    bool AddMode = false;
    /// Adding: the code of the main type. Editing: the code of the subtype. A choice in the list of main types, the
    /// one that loading makes included, puts the code of that main type in its place.
    QString TypeCodeOf;

 protected:
    void wire() override;
    void Form_Load() override;

 private:
    std::array<ComboBox*, testingTypeWords.size()> wordFields() const;
    std::array<QLineEdit*, testingTypeNotes.size()> noteFields() const;

    void fillMainTypes();
    void cmbType_Click();
    void InitializeForm();
    bool passesChecks();
    cTestingType record() const;
    void Command1_Click();
};

}  // namespace talvora
