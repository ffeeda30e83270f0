#include "settings/coption.h"
#include "support/database_fixture.h"

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

class OptionTest : public DatabaseTest {};
TALVORA_ON_EVERY_ENGINE(OptionTest);

TEST_P(OptionTest, UpdateIsSeenByTheNextReaderAndUnknownNamesChangeNothing) {
    EXPECT_EQ(sentBy([] { return cOption::Update(u"intTimeInterval"_s, u" 1.5"_s); }),
              u"Update Options set VarValue=' 1.5' where varName='intTimeInterval'"_s);
    EXPECT_EQ(cOption::Update(u"nothing"_s, u"1.5"_s), Status::Done);
    EXPECT_EQ(cOption::Update(u"blnCheckId"_s, u"o'"_s), Status::Failed);
    EXPECT_EQ(rowsOf(u"select VarName from Options where VarValue like '%1.5'"_s), u"intTimeInterval"_s);
    cOptions options;
    options.Find({});
    EXPECT_EQ(options.Item(4), options.Item(u"a4"_s));
    EXPECT_EQ(options.Find(u"intTimeInterval"_s).Item(u"a1"_s)->VarValue, u"1.5"_s);
    EXPECT_EQ(options.Find(u"nothing"_s).Count(), 0);
}

}  // namespace

}  // namespace talvora::test
