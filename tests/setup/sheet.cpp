#include "setup/sheet.h"

#include "setup/import/columns.h"

namespace talvora::test {

using namespace Qt::StringLiterals;

Sheet Sheet::valid() {
    Sheet sheet;
    sheet.header_ = headerLine().split(u',');
    const QStringList questions{u"任务延期时您会怎么做？"_s, u"发现同事的差错时您会？"_s, u"您如何安排一天的工作？"_s};
    for (const auto& question : questions) {
        sheet.rows_.emplace_back(sheet.header_.size());
        const int row = static_cast<int>(sheet.rows_.size());
        sheet.set({row, u"题目"_s, question});
        for (const char16_t letter : {u'A', u'B', u'C'}) {
            sheet.set({row, u"答案"_s + QChar(letter), u"做法"_s + QChar(letter)});
            sheet.set({row, u"分数"_s + QChar(letter), QString::number(u'C' - letter)});
        }
    }
    const QStringList head{u"测评主类"_s,  u"职业素养"_s, u"测评子类"_s,  u"责任心"_s, u"试卷编号"_s,  u"P-1"_s,
                           u"得分下限1"_s, u"5"_s,        u"得分上限1"_s, u"6"_s,      u"评价结果1"_s, u"优秀"_s,
                           u"得分下限2"_s, u"3"_s,        u"得分上限2"_s, u"4"_s,      u"评价结果2"_s, u"一般"_s,
                           u"得分下限3"_s, u"0"_s,        u"得分上限3"_s, u"2"_s,      u"评价结果3"_s, u"较差"_s};
    for (qsizetype i = 0; i < head.size(); i += 2) {
        sheet.set({1, head[i], head[i + 1]});
    }
    return sheet;
}

void Sheet::set(const CellChange& change) {
    rows_.at(static_cast<std::size_t>(change.row - 1))[columnOf(change.column)] = change.text;
}

void Sheet::setHeader(const QString& column, const QString& name) {
    header_[columnOf(column)] = name;
}

void Sheet::removeColumn(const QString& column) {
    const auto place = columnOf(column);
    header_.removeAt(place);
    for (auto& row : rows_) {
        row.removeAt(place);
    }
}

void Sheet::appendCopy(const std::vector<CellChange>& changes) {
    rows_.push_back(rows_.back());
    for (const auto& change : changes) {
        set({static_cast<int>(rows_.size()), change.column, change.text});
    }
}

void Sheet::appendPaper(const std::vector<CellChange>& changes) {
    const int first = static_cast<int>(rows_.size()) + 1;
    const std::vector<QStringList> pattern(rows_.begin(), rows_.begin() + 3);
    rows_.insert(rows_.end(), pattern.begin(), pattern.end());
    for (const auto& change : changes) {
        set({first, change.column, change.text});
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

qsizetype Sheet::columnOf(const QString& column) const {
    const auto place = header_.indexOf(column);
    Q_ASSERT_X(place >= 0, "Sheet", "no such column");
    return place;
}

}  // namespace talvora::test
