#include "assessment/testing_report.h"

namespace talvora {

using namespace Qt::StringLiterals;

QString testingReport(const QString& name, const QString& moment, const QString& typeName, const cTestings& family) {
    constexpr qsizetype ruleWidth = 66;
    constexpr auto lineEnd = "\r\n"_L1;
    const auto first = family.Item(1);
    QString report = u"姓    名："_s + name + lineEnd + u"测评时间："_s + moment + lineEnd + u"测评类型："_s +
                     typeName + lineEnd + u"测评得分："_s + QString::number(first->Score) + lineEnd + u"测评结果："_s +
                     first->TestingResult;
    if (family.Count() > 1) {
        report += lineEnd + QString(ruleWidth, u'-') + lineEnd + u"测评要素\t测评分数\t测评结果"_s + lineEnd;
    }
    for (int i = 2; i <= family.Count(); ++i) {
        const auto row = family.Item(i);
        report += row->TypeName + u'\t' + QString::number(row->Score) + u'\t' + row->TestingResult + lineEnd;
    }
    return report;
}

}  // namespace talvora
