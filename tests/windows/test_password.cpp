#include "access/cuser.h"
#include "access/frmpassword.h"
#include "support/database_fixture.h"
#include "support/windows.h"

namespace talvora::test {
namespace {

using namespace Qt::StringLiterals;

class PasswordDialog : public WindowTest {
 protected:
    EmbeddedDatabase database_;
};

TEST_F(PasswordDialog, OkChecksInItsOrder) {
    const QString wrong = u"输入的［旧密码］不对，请重新输入！"_s;
    const QString full(25, u'x');
    frmPassword& w = frmPassword::Default();
    const struct {
        QString old;
        QString next;
        QString confirm;
        QString words;
        QString field;
        QString after;
    } table[] = {
        {u"Admin"_s, u""_s, u""_s, wrong, u"txtOld"_s, u"admin"_s},
        {u"admin "_s, u"n"_s, u"n"_s, wrong, u"txtOld"_s, u"admin"_s},
        {u"admin"_s, u""_s, u"n"_s, u"请输入［新密码］！"_s, u"txtNew"_s, u"admin"_s},
        {u"admin"_s, u"n"_s, u"N"_s, u"［新密码］与［确认密码］不一致，请重新输入！"_s, u"txtConfirm"_s, u"admin"_s},
        {u"admin"_s, u"'"_s, u"'"_s, {}, {}, u"admin"_s},  // fails unseen
        {u"admin"_s, u"admin"_s, u"admin"_s, {}, {}, u"admin"_s},
        {u"admin"_s, full + u'y', full + u'y', u"［新密码］与［确认密码］不一致，请重新输入！"_s, u"txtConfirm"_s,
         u"admin"_s},
        {u"admin"_s, full, full, {}, {}, full},
        {full, u"n"_s, u"n"_s, wrong, u"txtOld"_s, full},  // the old field takes 20 of the 25
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.old.toStdString() + ' ' + row.next.toStdString());
        w.UserNameOf = u"admin"_s;
        w.Show();
        // Enter moves on from field to field.
        w.ui->txtOld->setFocus();
        for (const QString& text : {row.old, row.next, row.confirm}) {
            type(focused(), text);
            press(Qt::Key_Return);
        }
        EXPECT_EQ(focused(), w.ui->cmdOK);
        PromptScript script;
        if (!row.words.isEmpty()) {
            script.expect(vbOK, row.words);
        }
        press(Qt::Key_Return);
        EXPECT_EQ(w.isLoaded(), !row.words.isEmpty());
        if (w.isLoaded()) {
            EXPECT_EQ(focused()->objectName(), row.field);
            EXPECT_EQ(w.ui->txtOld->text().isEmpty(), row.words == wrong);
            click(w.ui->cmdCancel);
        }
        EXPECT_EQ(cUser::GetPassword(u"admin"_s), row.after);
    }
}

}  // namespace
}  // namespace talvora::test
