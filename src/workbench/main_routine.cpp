#include "workbench/main_routine.h"

#include "assessment/frmtesting.h"
#include "core/mdlpublic.h"
#include "toolkit/prompts.h"
#include "workbench/frmlogin.h"

namespace talvora {

using namespace Qt::StringLiterals;

void Main() {
    if (!ConnectServer()) {
        MsgBox(u"［SQL SERVER］连接不成功，请先运行安装项下的［连接到SQL SERVER］进行配置！"_s, vbInformation);
        return;
    }
    frmLogin& login = frmLogin::Default();
    login.ShowModal();
    if (!login.LoginPassed) {
        return;
    }
    login.Unload();
    frmTesting& testing = frmTesting::Default();
    testing.Show();
    testing.runUntilUnloaded();
}

}  // namespace talvora
