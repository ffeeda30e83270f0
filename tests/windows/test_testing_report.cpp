#include "assessment/testing_report.h"

#include <gtest/gtest.h>

namespace talvora {
namespace {

using namespace Qt::StringLiterals;

void addRow(cTestings& family, const QString& typeName, qint16 score, const QString& verdict) {
    auto row = std::make_shared<cTesting>();
    row->TestingID = family.Count() + 1;
    row->TypeName = typeName;
    row->Score = score;
    row->TestingResult = verdict;
    family.Add(row);
}

TEST(TestingReport, ModelListsItsRowsBelowARule) {
    cTestings family;
    addRow(family, u"销售经理模型"_s, 31, QString());
    addRow(family, u"职业素养"_s, 31, QString());
    addRow(family, u"责任心"_s, 0, u"较差"_s);
    const QString rule = u"------------------------------------------------------------------"_s;
    ASSERT_EQ(rule.size(), 66);
    EXPECT_EQ(testingReport(u"李四"_s, u"t"_s, u"销售经理模型"_s, family),
              u"姓    名：李四\r\n测评时间：t\r\n测评类型：销售经理模型\r\n测评得分：31\r\n测评结果：\r\n"_s + rule +
                  u"\r\n测评要素\t测评分数\t测评结果\r\n职业素养\t31\t\r\n责任心\t0\t较差\r\n"_s);
}

}  // namespace
}  // namespace talvora
