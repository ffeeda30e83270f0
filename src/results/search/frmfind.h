#pragma once

#include "results/search/query_builder.h"
#include "toolkit/forms/form.h"
#include "ui_frmfind.h"

namespace talvora {

/// The search window of the testing records. It searches nothing itself: it composes a statement for its caller, and
/// keeps such statements under a description.
class frmFind : public DesignedForm<frmFind, Ui::frmFind> {
 public:
    /// The statement of the last cmdFind, for `cTestings::Find`; empty before the first. cmdClose leaves it alone.
    QString strSQL;

 protected:
    void wire() override;
    void Form_Load() override;

 private:
    QueryCriteria criteria() const;
    void listQueries();
    void SSTab1_Click();
    void fg1_Click();
    void cmbDate_Click();
    void lstType_ItemCheck(QListWidgetItem* item);
    void cmdFind_Click();
    void cmdSave_Click();
};

}  // namespace talvora
