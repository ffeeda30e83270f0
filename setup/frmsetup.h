#pragma once

#include "core/connection_file.h"
#include "setup/install.h"
#include "toolkit/forms/form.h"
#include "ui_frmsetup.h"

namespace talvora {

/// The window of the set-up tool: connect, install, and bring data in, from top to bottom. Results are listed beside
/// the steps.
class frmSetup : public DesignedForm<frmSetup, Ui::frmSetup> {
 protected:
    void wire() override;
    void Form_Load() override;

 private:
    void optKind_Click();
    void cmdBrowse_Click();
    void cmdConnect_Click();
    void cmdInstall_Click();
    void cmdSample_Click();
    void cmdImport_Click();
    void cmdCheck_Click();

    /// Runs long work with the busy pointer and the buttons out of reach, and shows what stops it. Whether it went
    /// through.
    bool work(const std::function<void()>& task);
    Progress progress();
    void report(const QString& text);
    void showConnection(const ConnectionFile& connection);
    /// The connection as entered; false after a refusal.
    bool readConnection(ConnectionFile& connection);
    void saveConnection(const ConnectionFile& connection);
};

}  // namespace talvora
