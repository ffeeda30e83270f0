#include "settings/frmoption.h"
#include "windows/journey_bank.h"

namespace talvora::test {
namespace {

using namespace Qt::StringLiterals;

TEST_F(JourneyTest, OptionsAreCheckedThenWrittenOneByOne) {
    const auto stored = [] { return rowsOf(u"select VarValue from Options order by VarName"_s).replace(u'\n', u' '); };
    setOption(u"intTimeInterval"_s, u"30"_s);
    setOption(u"blnCheckId"_s, u"N"_s);
    setOption(u"blnLockTerminal"_s, u"Y"_s);
    setOption(u"blnPostRelational"_s, u"?"_s);
    frmOption& w = frmOption::Default();
    w.Show();
    EXPECT_TRUE(w.ui->chkPostRelational->isChecked()) << "any value but N";
    click(w.ui->chkCheckID);
    click(w.ui->chkLockTerminal);
    const struct {
        int failing;
        QString interval, left, words;
    } table[] = {
        {0, {}, u"N Y ? 30"_s, u"［间隔时间］不能为空！"_s},
        {0, u"1a"_s, u"N Y ? 30"_s, u"［间隔时间］只能输入数字类型！"_s},
        {0, u"-1"_s, u"N Y ? 30"_s, u"［间隔时间］不能小于0！"_s},
        {1, u".5"_s, u"N Y ? 30"_s, u"［间隔时间］修改不成功，请稍后重试！"_s},
        {2, u".5"_s, u"N Y ? .5"_s, u"［职位关联］修改不成功，请稍后重试！"_s},
        {3, u".5"_s, u"N Y Y .5"_s, u"［锁定自助测评］修改不成功，请稍后重试！"_s},
        {4, u".5"_s, u"N N Y .5"_s, u"［验证身份证合法性］修改不成功，请稍后重试！"_s},
    };
    for (const auto& row : table) {
        retype(w.ui->txtTimeInterval, row.interval);
        PromptScript script;
        script.expect(vbOK, row.words);
        EXPECT_EQ(statementsOf([&] { click(w.ui->cmdOK); }, row.failing).size(), row.failing);
        EXPECT_EQ(script.last().style, vbExclamation);
        EXPECT_TRUE(w.isLoaded() && (row.failing > 0 || focused() == w.ui->txtTimeInterval));
        EXPECT_EQ(stored(), row.left);
    }
    click(w.ui->cmdOK);
    EXPECT_FALSE(w.isLoaded());
    EXPECT_EQ(stored(), u"Y N Y .5"_s);
}

}  // namespace
}  // namespace talvora::test
