#include "setup/sheet.h"

#include "setup/import/columns.h"

namespace talvora::test {

using namespace Qt::StringLiterals;

Sheet::Sheet(const QString& changes) : header_(headerLine().split(u',')) {
    for (const auto& question :
         {u"任务延期时您会怎么做？"_s, u"发现同事的差错时您会？"_s, u"您如何安排一天的工作？"_s}) {
        rows_.emplace_back(header_.size());
        change(rows_.size() - 1,
               u"1 答案A=做法A|1 分数A=2|1 答案B=做法B|1 分数B=1|1 答案C=做法C|1 分数C=0|1 题目="_s + question);
    }
    change(0,
           u"1 测评主类=职业素养|1 测评子类=责任心|1 试卷编号=P-1|1 得分下限1=5|1 得分上限1=6|1 评价结果1=优秀|"
           "1 得分下限2=3|1 得分上限2=4|1 评价结果2=一般|1 得分下限3=0|1 得分上限3=2|1 评价结果3=较差"_s);
    change(0, changes);
}

Sheet& Sheet::appendPaper(const QString& changes) {
    const std::vector<QStringList> pattern(rows_.begin(), rows_.begin() + 3);
    rows_.insert(rows_.end(), pattern.begin(), pattern.end());
    change(rows_.size() - pattern.size(), changes);
    return *this;
}

void Sheet::removeColumn(const QString& column) {
    const auto place = header_.indexOf(column);
    header_.removeAt(place);
    for (auto& row : rows_) {
        row.removeAt(place);
    }
}

QString Sheet::text(QChar separator) const {
    QString text = header_.join(separator) + u'\n';
    for (const auto& row : rows_) {
        QStringList cells;
        for (QString cell : row) {
            cells.append(u'"' + cell.replace(u'"', u"\"\""_s) + u'"');
        }
        text += cells.join(separator) + u'\n';
    }
    return text;
}

void Sheet::change(std::size_t firstRow, const QString& changes) {
    for (const auto& change : changes.split(u'|', Qt::SkipEmptyParts)) {
        const auto place = change.section(u'=', 0, 0);
        const auto row = firstRow + place.section(u' ', 0, 0).toUInt() - 1;
        rows_.at(row)[header_.indexOf(place.section(u' ', 1))] = change.section(u'=', 1);
    }
}

}  // namespace talvora::test
