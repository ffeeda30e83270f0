#include "organisation/post_prefix.h"

#include <gtest/gtest.h>

namespace talvora {
namespace {

using namespace Qt::StringLiterals;

TEST(PostPrefixes, ShowTheDepthDownToTheFifthLevel) {
    const struct {
        QString code;
        QString prefix;
    } list[] = {
        {u"001"_s, u""_s},
        {u"001001"_s, u"|-"_s},
        {u"001001001"_s, u"||-"_s},
        {u"001001001001001"_s, u"||||-"_s},
        {u"001001001001001001"_s, u"||||-"_s},
        {u"001002"_s, u"|-"_s},
        {u"001002001001001001001"_s, u"|-"_s},  // too deep: keeps the prefix of the one before
        {u"002"_s, u""_s},
    };
    PostPrefixes prefixes;
    for (const auto& row : list) {
        EXPECT_EQ(prefixes.of(row.code), row.prefix) << row.code.toStdString();
    }
}

}  // namespace
}  // namespace talvora
