#include "setup/import/import.h"

#include "core/mdlpublic.h"
#include "core/resume_next.h"
#include "setup/import/bank.h"
#include "setup/import/csv.h"
#include "setup/import/text_file.h"
#include "testbank/cexamination.h"
#include "testbank/ctestingtype.h"

#include <QFile>

#include <ranges>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

// What has been made so far is kept by name: its key is read back when it is needed, so that it can be taken out again
// even when the reading of the key is what failed.
struct MadeType {
    TypeKind kind;   ///< Main, or Under for a subtype
    QString parent;  ///< of a subtype: the code of its main type
    QString name;

    QString code() const {
        cTestingTypes types;
        for (const auto& type : types.Find(kind, parent)) {
            if (comparable(type->Name) == comparable(name)) {
                return type->NowCode;
            }
        }
        throw RuntimeError(errors::InvalidCall, u"数据库写入失败：没有找到刚增加的［%1］。"_s.arg(name));
    }
};

struct MadePaper {
    QString typeCode;
    QString number;
};

// Writes the papers one by one, each with the types that it needs and that are not there yet, and takes all of it out
// again when one fails.
class BankWriter {
 public:
    BankWriter(BankPlan& plan, ImportOutcome& outcome) : plan_(plan), outcome_(outcome) {}

    void write(const std::vector<ImportPaper>& papers, const Progress& progress) {
        try {
            for (std::size_t i = 0; i < papers.size(); ++i) {
                writePaper(papers[i]);
                if (progress) {
                    progress(static_cast<int>(i + 1), static_cast<int>(papers.size()));
                }
            }
        } catch (const RuntimeError& error) {
            const auto rest =
                undo() == Status::Done ? u"已写入的内容已全部撤销。"_s : u"已写入的内容未能全部撤销，请检查题库！"_s;
            throw RuntimeError(error.number(), error.description() + u'\n' + rest);
        }
    }

 private:
    static void demand(Status status, const QString& what) {
        if (status != Status::Done) {
            throw RuntimeError(errors::InvalidCall, u"数据库写入失败：%1。"_s.arg(what));
        }
    }

    void writePaper(const ImportPaper& paper) {
        auto& main = plan_.mainType(paper);
        if (main.code.isEmpty()) {
            main.code = addMainType(paper);
        }
        auto& sub = plan_.subtype(paper);
        if (sub.code.isEmpty()) {
            sub.code = addSubtype(paper, main.code, sub);
        }
        addPaper(paper, sub.code);
    }

    // Who made the paper and when, for the paper itself and for a subtype made with it.
    template <class Record>
    static void sign(Record& record, const ImportPaper& paper) {
        record.Author = paper.author;
        record.Auditing = paper.auditing;
        record.Approver = paper.approver;
        record.WriteDate = paper.writeDate;
        record.AuditingDate = paper.auditingDate;
        record.ApproverDate = paper.approverDate;
    }

    QString addMainType(const ImportPaper& paper) {
        const MadeType made{TypeKind::Main, {}, paper.mainType};
        demand(cTestingType().AddNew(u"parent"_s, {}, made.name), u"测评主类［%1］"_s.arg(made.name));
        types_.push_back(made);
        ++outcome_.mainTypes;
        return made.code();
    }

    QString addSubtype(const ImportPaper& paper, const QString& mainCode, const BankSubtype& planned) {
        cTestingType type;
        sign(type, paper);
        type.Note = planned.note;
        for (qsizetype i = 0; i < planned.words.size(); ++i) {
            type.*testingTypeWords[static_cast<std::size_t>(i)] = planned.words[i];
            type.*testingTypeNotes[static_cast<std::size_t>(i)] = planned.explanations[i];
        }
        const MadeType made{TypeKind::Under, mainCode, paper.subtype};
        demand(type.AddNew(u"child"_s, mainCode, made.name), u"测评子类［%1］"_s.arg(made.name));
        types_.push_back(made);
        ++outcome_.subtypes;
        return made.code();
    }

    void addPaper(const ImportPaper& paper, const QString& typeCode) {
        cExamination examination;
        examination.TypeCode = typeCode;
        examination.ExaminationNum = paper.number;
        sign(examination, paper);
        examination.AnswerAmount = static_cast<qint16>(paper.questions.front().answers.size());
        examination.TestingTime = paper.minutes;
        examination.Note = paper.note;
        for (std::size_t i = 0; i < paper.bands.size(); ++i) {
            examination.*examinationScopes[i] = paper.bands[i].scope();
            examination.*examinationWords[i] = paper.bands[i].word;
        }
        examination.Status = paper.isDraft ? u"0 - 建立中"_s : u"1 - 已完成"_s;
        demand(examination.AddNew(questionsOf(paper)), u"试卷［%1］"_s.arg(paper.number));
        papers_.push_back({typeCode, paper.number});
        ++outcome_.papers;
        outcome_.questions += static_cast<int>(paper.questions.size());
    }

    // With the labels that the record cuts off, and running numbers for keys.
    static cQuestions questionsOf(const ImportPaper& paper) {
        cQuestions questions;
        for (const auto& given : paper.questions) {
            auto question = std::make_shared<cQuestion>();
            question->QuestionID = static_cast<qint16>(questions.Count() + 1);
            question->QuestionName = given.text;
            for (std::size_t i = 0; i < given.scores.size(); ++i) {
                const QChar letter(static_cast<char16_t>(u'A' + i));
                (*question).*questionAnswers[i] = letter + u"．"_s + given.answers[static_cast<qsizetype>(i)];
                (*question).*questionScores[i] = given.scores[i];
            }
            questions.Add(question);
        }
        return questions;
    }

    // A paper that failed half way has left its transaction open.
    Status undo() {
        ResumeNext rollback;
        rollback([] { cnnPublic.RollbackTrans(); });
        Status status = Status::Done;
        const auto remember = [&](Status step) { status = step == Status::Done ? status : step; };
        ResumeNext steps;
        for (const auto& paper : papers_ | std::views::reverse) {
            steps([&] { remember(cExamination::Delete(cExamination::GetExamIDByNum(paper.typeCode, paper.number))); });
        }
        for (const auto& type : types_ | std::views::reverse) {
            steps([&] { remember(cTestingType::Delete(type.code())); });
        }
        return status == Status::Done ? steps.status() : status;
    }

    BankPlan& plan_;
    ImportOutcome& outcome_;
    std::vector<MadePaper> papers_;
    std::vector<MadeType> types_;
};

}  // namespace

ImportOutcome importPapers(const QByteArray& content, const Progress& progress) {
    ImportOutcome outcome;
    const auto text = fileText(content, outcome.faults);
    if (!outcome.faults.empty()) {
        return outcome;
    }
    const auto records = parseCsv(text, csvSeparator(text), outcome.faults);
    if (!outcome.faults.empty()) {
        return outcome;
    }
    const auto papers = importPapersOf(importRows(records, outcome.faults), outcome.faults);
    BankPlan plan(papers, outcome.faults);
    if (!outcome.faults.empty()) {
        return outcome;
    }
    outcome.notes = plan.notes(papers);
    BankWriter(plan, outcome).write(papers, progress);
    return outcome;
}

ImportOutcome importFile(const QString& path, const Progress& progress) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        throw RuntimeError(errors::FileNotFound, u"文件［%1］不能读取：%2"_s.arg(path, file.errorString()));
    }
    return importPapers(file.readAll(), progress);
}

QString outcomeText(const ImportOutcome& outcome, const QString& fileName) {
    if (!outcome.faults.empty()) {
        const auto head =
            u"文件［%1］有 %2 处错误，没有导入任何内容："_s.arg(fileName, QString::number(outcome.faults.size()));
        return head + u'\n' + faultLines(outcome.faults).join(u'\n');
    }
    QStringList lines{u"导入完成：新增测评主类 %1 个、测评子类 %2 个、试卷 %3 份、试题 %4 道。"_s.arg(outcome.mainTypes)
                          .arg(outcome.subtypes)
                          .arg(outcome.papers)
                          .arg(outcome.questions)};
    for (const auto& note : outcome.notes) {
        lines.append(u"提示："_s + note);
    }
    return lines.join(u'\n');
}

}  // namespace talvora
