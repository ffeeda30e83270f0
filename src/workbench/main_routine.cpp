#include "workbench/main_routine.h"

#include "core/mdlpublic.h"
#include "toolkit/application/private_folder.h"
#include "toolkit/forms/prompts.h"
#include "workbench/frmlogin.h"
#include "workbench/frmmain.h"

namespace talvora {

using namespace Qt::StringLiterals;

std::unique_ptr<frmMain> fMainForm;

void Main() {
    if (!ConnectServer()) {
        MsgBox(u"［SQL SERVER］连接不成功，请先运行安装项下的［连接到SQL SERVER］进行配置！"_s, vbInformation);
        return;
    }
    frmLogin& login = frmLogin::Default();
    login.ShowModal();
    PrivateFolder::removeLeft();
    if (!login.LoginPassed) {
        return;
    }
    login.Unload();
    fMainForm = std::make_unique<frmMain>();
    fMainForm->Show();
    fMainForm->runUntilUnloaded();
}

}  // namespace talvora
