#include "setup/import/columns.h"

#include "setup/import/text_file.h"

#include <algorithm>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

struct ColumnRule {
    QString name;
    bool isRequired;
    int limit;  ///< in characters; 0 where the reader of the column looks at its form
    bool holdsLines = false;
};

std::vector<ColumnRule> makeRules() {
    std::vector<ColumnRule> rules{
        {u"测评主类"_s, true, 25},  {u"测评子类"_s, true, 25},  {u"子类说明"_s, false, 500, true},
        {u"试卷编号"_s, true, 10},  {u"测评限时"_s, false, 0},  {u"试卷说明"_s, false, 50},
        {u"状态"_s, false, 0},      {u"编制人员"_s, false, 25}, {u"审核人员"_s, false, 25},
        {u"批准人员"_s, false, 25}, {u"编制日期"_s, false, 0},  {u"审核日期"_s, false, 0},
        {u"批准日期"_s, false, 0},
    };
    for (int band = 1; band <= bandCount; ++band) {
        const bool isRequired = band <= 2;
        const auto number = QString::number(band);
        rules.push_back({u"得分下限"_s + number, isRequired, 0});
        rules.push_back({u"得分上限"_s + number, isRequired, 0});
        rules.push_back({u"评价结果"_s + number, isRequired, 25});
        rules.push_back({u"结果说明"_s + number, false, 25});
    }
    rules.push_back({u"题目"_s, true, 100, true});
    for (int answer = 0; answer < answerCount; ++answer) {
        const bool isRequired = answer < leastAnswerAmount;
        const QChar letter(static_cast<char16_t>(u'A' + answer));
        rules.push_back({u"答案"_s + letter, isRequired, 100, true});
        rules.push_back({u"分数"_s + letter, isRequired, 0});
    }
    return rules;
}

const std::vector<ColumnRule>& rules() {
    static const auto made = makeRules();
    return made;
}

constexpr int noColumn = -1;

int columnOf(const QString& name) {
    const auto found =
        std::find_if(rules().begin(), rules().end(), [&](const ColumnRule& rule) { return rule.name == name; });
    return found == rules().end() ? noColumn : static_cast<int>(found - rules().begin());
}

// The column of each cell of a record, by the header.
std::vector<int> readHeader(const CsvRecord& header, ImportFaults& faults) {
    std::vector<int> columns;
    for (const auto& cell : header.cells) {
        const auto name = cell.trimmed();
        const int column = name.isEmpty() ? noColumn : columnOf(name);
        if (!name.isEmpty() && column == noColumn) {
            faults.push_back({header.line, u"不认识的列名［%1］！"_s.arg(name)});
        }
        if (column != noColumn && std::find(columns.begin(), columns.end(), column) != columns.end()) {
            faults.push_back({header.line, u"列名［%1］重复！"_s.arg(name)});
        }
        columns.push_back(column);
    }
    for (std::size_t i = 0; i < rules().size(); ++i) {
        if (rules()[i].isRequired && std::find(columns.begin(), columns.end(), static_cast<int>(i)) == columns.end()) {
            faults.push_back({header.line, u"缺少列［%1］！"_s.arg(rules()[i].name)});
        }
    }
    return columns;
}

bool hasControlCharacter(const QString& text, bool holdsLines) {
    return std::any_of(text.begin(), text.end(),
                       [&](QChar c) { return c.category() == QChar::Other_Control && !(holdsLines && c == u'\n'); });
}

// The characters that the database could not store, each once.
QString strangeCharacters(const QString& text) {
    QString strange;
    for (const auto code : text.toUcs4()) {
        const auto character = QString::fromUcs4(reinterpret_cast<const char32_t*>(&code), 1);
        if (!strange.contains(character) && !isGbkText(character)) {
            strange += character;
        }
    }
    return strange;
}

void checkCell(int line, const ColumnRule& rule, const QString& text, ImportFaults& faults) {
    const auto fault = [&](const QString& reason) { faults.push_back({line, u"［%1］"_s.arg(rule.name) + reason}); };
    if (rule.limit > 0 && text.size() > rule.limit) {
        fault(u"最多 %1 个字符，现有 %2 个！"_s.arg(rule.limit).arg(text.size()));
    }
    if (text.contains(u'\'')) {
        fault(u"中不可有字符［'］！"_s);
    }
    if (hasControlCharacter(text, rule.holdsLines)) {
        fault(u"中不可有换行、制表等控制字符！"_s);
    } else if (!isGbkText(text)) {
        fault(u"中有数据库不能保存的字符［%1］！"_s.arg(strangeCharacters(text)));
    }
}

ImportRow readRow(const CsvRecord& record, const std::vector<int>& columns, ImportFaults& faults) {
    ImportRow row(record.line);
    for (qsizetype i = 0; i < record.cells.size(); ++i) {
        const auto text = record.cells[i].trimmed();
        const auto place = static_cast<std::size_t>(i);
        if (text.isEmpty()) {
            continue;
        }
        if (place >= columns.size() || columns[place] == noColumn) {
            faults.push_back({record.line, u"第 %1 格［%2］没有列名！"_s.arg(i + 1).arg(text.left(20))});
            continue;
        }
        checkCell(record.line, rules()[static_cast<std::size_t>(columns[place])], text, faults);
        row[static_cast<Column>(columns[place])] = text;
    }
    return row;
}

}  // namespace

QString columnName(Column column) {
    return rules()[static_cast<std::size_t>(column)].name;
}

QString headerLine() {
    QStringList names;
    for (const auto& rule : rules()) {
        names.append(rule.name);
    }
    return names.join(u',');
}

std::vector<ImportRow> importRows(const std::vector<CsvRecord>& records, ImportFaults& faults) {
    if (records.empty()) {
        faults.push_back({0, u"文件是空的！"_s});
        return {};
    }
    const auto before = faults.size();
    const auto columns = readHeader(records.front(), faults);
    if (faults.size() > before) {
        return {};
    }
    std::vector<ImportRow> rows;
    for (auto record = records.begin() + 1; record != records.end(); ++record) {
        rows.push_back(readRow(*record, columns, faults));
    }
    if (rows.empty()) {
        faults.push_back({0, u"文件中没有试题！"_s});
    }
    return rows;
}

}  // namespace talvora
