#include "setup/sample/sample_models.h"

#include "models/csolution.h"
#include "platform/moment.h"
#include "platform/runtime_error.h"
#include "setup/import/csv.h"
#include "testbank/ctestingtype.h"

#include <QHash>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

enum Column { Model, Post, Version, Line, Score, Weight, ColumnCount };

QHash<QString, QString> typeCodes() {
    QHash<QString, QString> codes;
    cTestingTypes types;
    for (const auto& type : types.Find(TypeKind::All)) {
        codes.insert(type->Name, type->NowCode);
    }
    return codes;
}

cSolution headOf(const QStringList& cells) {
    // Older than the oldest of the sample's tests.
    constexpr int monthsAgo = 7;
    const QString day = presentMoment().date().addMonths(-monthsAgo).toString(Qt::ISODate);
    cSolution head;
    head.SolutionName = cells[Model];
    head.PostName = cells[Post];
    head.Version = cells[Version];
    head.Author = u"周雅琴"_s;
    head.Auditing = u"方志远"_s;
    head.Approver = u"顾明"_s;
    head.WriteDate = day;
    head.AuditingDate = day;
    head.ApproverDate = day;
    head.Note = u"示例模型"_s;
    return head;
}

void store(const cSolution& head, const cDimensions& lines) {
    if (lines.Count() > 0 && head.AddNew(lines) != Status::Done) {
        throw RuntimeError(errors::InvalidCall, u"素质模型［%1］没有保存成功！"_s.arg(head.SolutionName));
    }
}

}  // namespace

void addSampleModels(const QString& csv) {
    ImportFaults faults;
    const auto records = parseCsv(csv, u',', faults);
    const auto codes = typeCodes();
    cSolution head;
    cDimensions lines;
    for (std::size_t number = 1; number < records.size(); ++number) {
        const auto& cells = records[number].cells;
        if (cells.size() < ColumnCount || !codes.contains(cells[Line])) {
            throw RuntimeError(errors::InvalidCall, u"素质模型的第 %1 行不能识别！"_s.arg(records[number].line));
        }
        if (cells[Model] != head.SolutionName) {
            store(head, lines);
            head = headOf(cells);
            lines.Clear();
        }
        auto line = std::make_shared<cDimension>();
        line->ID = static_cast<qint16>(number);
        line->TypeCode = codes.value(cells[Line]);
        line->TypeName = cells[Line];
        line->Score = cells[Score];
        line->Weighing = cells[Weight];
        lines.Add(line);
    }
    store(head, lines);
}

}  // namespace talvora
