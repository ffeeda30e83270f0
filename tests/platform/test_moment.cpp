#include "platform/moment.h"
#include "platform/runtime_error.h"

#include <gtest/gtest.h>

namespace talvora {
namespace {

using namespace Qt::StringLiterals;

TEST(Moment, ReadsTheFormsOfADate) {
    const struct {
        QString text;
        QString moment;
    } table[] = {
        {u"2026-03-04 05:06:07"_s, u"2026-03-04 05:06:07"_s},
        {u"2026-3-4 5:6:7"_s, u"2026-03-04 05:06:07"_s},
        {u"2026/03/04 23:59"_s, u"2026-03-04 23:59:00"_s},
        {u" 2024-02-29 "_s, u"2024-02-29 00:00:00"_s},
    };
    for (const auto& row : table) {
        EXPECT_EQ(momentText(toMoment(row.text)), row.moment) << row.text.toStdString();
    }
    for (const auto& text : {u""_s, u"2026-02-30 01:02:03"_s, u"2026-01-01 25:00:00"_s, u"yesterday"_s}) {
        EXPECT_THROW(toMoment(text), RuntimeError) << text.toStdString();
    }
}

TEST(Moment, PresentHasNoPartsOfASecond) {
    EXPECT_EQ(toMoment(momentText(presentMoment())).msecsTo(presentMoment()) % 1000, 0);
}

}  // namespace
}  // namespace talvora
