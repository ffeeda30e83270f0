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

TEST(PostPrefixes, TwoWaysToTheBareName) {
    const struct {
        QString text;
        QString behindPrefix;
        QString name;
    } table[] = {
        {u"|-销售经理"_s, u"销售经理"_s, u"销售经理"_s},
        {u"||||-客户专员"_s, u"客户专员"_s, u"客户专员"_s},
        {u"总经理"_s, u"经理"_s, u"总经理"_s},
        {u"|-a|-b"_s, u"a|-b"_s, u"a|-b"_s},
    };
    for (const auto& row : table) {
        EXPECT_EQ(textBehindPrefix(row.text), row.behindPrefix);
        EXPECT_EQ(postNameOf(row.text), row.name);
    }
}

}  // namespace
}  // namespace talvora
