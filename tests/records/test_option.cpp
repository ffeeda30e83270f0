#include "settings/coption.h"
#include "support/database_fixture.h"

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

class OptionTest : public DatabaseTest {};
TALVORA_ON_EVERY_ENGINE(OptionTest);

TEST_P(OptionTest, UpdateIsSeenByTheNextReader) {
    const auto sent = statementsOf([] { EXPECT_EQ(cOption::Update(u"intTimeInterval"_s, u" 1.5"_s), Status::Done); });
    EXPECT_EQ(sent.join(u'\n'), u"Update Options set VarValue=' 1.5' where varName='intTimeInterval'"_s);
    cOptions options;
    EXPECT_EQ(options.Find(u"intTimeInterval"_s).Item(1)->VarValue, u"1.5"_s);
    EXPECT_EQ(options.Count(), 1);
    EXPECT_EQ(options.Find({}).Count(), 4);
    EXPECT_EQ(options.Item(u"a4"_s), options.Item(4));
}

TEST_P(OptionTest, UnknownNameChangesNothing) {
    const QString before = rowsOf(u"select VarName,VarValue from Options order by VarName"_s);
    EXPECT_EQ(cOption::Update(u"nothing"_s, u"Y"_s), Status::Done);
    EXPECT_EQ(cOption::Update(u"blnCheckId"_s, u"o'"_s), Status::Failed);
    EXPECT_EQ(rowsOf(u"select VarName,VarValue from Options order by VarName"_s), before);
    cOptions options;
    EXPECT_EQ(options.Find(u"nothing"_s).Count(), 0);
}

}  // namespace

}  // namespace talvora::test
