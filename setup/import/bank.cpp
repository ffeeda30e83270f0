#include "setup/import/bank.h"

#include "core/data_routines.h"
#include "core/mdlpublic.h"
#include "testbank/cexamination.h"
#include "testbank/ctestingtype.h"

#include <QSet>

#include <algorithm>
#include <limits>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int mostMainTypes = 9;
constexpr int mostSubtypes = 999;
constexpr qsizetype mostWords = 4;
// The client holds keys in 16 bits.
constexpr int greatestKey = std::numeric_limits<qint16>::max();

// Fills `kept` from the first paper that gives a text; another paper must not give another.
bool agrees(QString& kept, const QString& given) {
    if (kept.isEmpty()) {
        kept = given;
    }
    return given.isEmpty() || given == kept;
}

void checkWord(const BankSubtype& subtype, const ImportPaper& paper, const QString& word, ImportFaults& faults) {
    if (!subtype.words.contains(word)) {
        faults.push_back({paper.line, u"评价结果［%1］不是题库中测评子类［%2］的评价结果（%3）！"_s.arg(
                                          word, paper.subtype, subtype.words.join(u'、'))});
    }
}

// A word of a subtype that is to be made, with its explanation.
void addWord(BankSubtype& subtype, const ImportPaper& paper, const ImportBand& band, ImportFaults& faults) {
    if (!subtype.words.contains(band.word)) {
        if (subtype.words.size() == mostWords) {
            faults.push_back({paper.line, u"测评子类［%1］的试卷共有四种以上的评价结果！"_s.arg(paper.subtype)});
            return;
        }
        subtype.words.append(band.word);
        subtype.explanations.append(QString());
    }
    if (!agrees(subtype.explanations[subtype.words.indexOf(band.word)], band.explanation)) {
        faults.push_back({paper.line, u"评价结果［%1］的结果说明与同一子类前一试卷的不一致！"_s.arg(band.word)});
    }
}

QString bandsText(const ImportPaper& paper) {
    QStringList parts;
    for (const auto& band : paper.bands) {
        parts << band.scope() << band.word;
    }
    return parts.join(u'\t');
}

QString bandsText(const cExamination& paper) {
    QStringList parts;
    for (std::size_t i = 0; i < examinationScopes.size(); ++i) {
        parts << paper.*examinationScopes[i] << paper.*examinationWords[i];
    }
    return parts.join(u'\t');
}

bool scoresAnswerE(const ImportPaper& paper) {
    return std::any_of(paper.questions.begin(), paper.questions.end(), [](const ImportQuestion& question) {
        return question.scores.size() == answerCount && question.scores.back() != 0;
    });
}

}  // namespace

BankPlan::BankPlan(const std::vector<ImportPaper>& papers, ImportFaults& faults) {
    load();
    for (const auto& paper : papers) {
        take(paper, faults);
    }
    checkKeys(papers, faults);
}

void BankPlan::load() {
    cTestingTypes types;
    for (const auto& type : types.Find(TypeKind::Main)) {
        auto& mainType = mainTypes_[comparable(type->Name)];
        highestMainType_ = std::max(highestMainType_, type->NowCode.toInt());
        if (mainType.code.isEmpty()) {
            mainType.code = type->NowCode;
            loadSubtypes(mainType);
        }
    }
    const auto numbers = cnnPublic.Execute(u"select ExaminationNum from Examination"_s);
    for (const auto row : numbers) {
        numbers_.append(comparable(row.text("ExaminationNum")));
    }
}

void BankPlan::loadSubtypes(BankMainType& mainType) {
    cTestingTypes types;
    for (const auto& type : types.Find(TypeKind::Under, mainType.code)) {
        if (type->NowCode.size() != subtypeCodeLength) {
            continue;
        }
        mainType.highestSubtype = std::max(mainType.highestSubtype, type->NowCode.sliced(mainTypeCodeLength).toInt());
        auto& subtype = mainType.subtypes[comparable(type->Name)];
        if (subtype.code.isEmpty()) {
            subtype.code = type->NowCode;
            for (const auto word : testingTypeWords) {
                subtype.words.append((*type).*word);
            }
            subtype.words.removeAll(QString());
        }
    }
}

void BankPlan::take(const ImportPaper& paper, ImportFaults& faults) {
    const auto fault = [&](const QString& reason) { faults.push_back({paper.line, reason}); };
    if (numbers_.contains(comparable(paper.number))) {
        fault(u"题库中已有［试卷编号］为［%1］的试卷！"_s.arg(paper.number));
    }
    if (!mainTypes_.contains(comparable(paper.mainType)) && ++highestMainType_ > mostMainTypes) {
        fault(u"题库最多有 %1 个测评主类，不能再增加［%2］！"_s.arg(mostMainTypes).arg(paper.mainType));
    }
    auto& main = mainType(paper);
    if (!main.subtypes.contains(comparable(paper.subtype)) && ++main.highestSubtype > mostSubtypes) {
        fault(u"测评主类［%1］最多有 %2 个测评子类，不能再增加［%3］！"_s.arg(
            paper.mainType, QString::number(mostSubtypes), paper.subtype));
    }
    auto& sub = subtype(paper);
    const bool isNew = sub.code.isEmpty();
    for (const auto& band : paper.bands) {
        if (!band.isUsed()) {
            continue;
        }
        isNew ? addWord(sub, paper, band, faults) : checkWord(sub, paper, band.word, faults);
    }
    if (isNew && !agrees(sub.note, paper.subtypeNote)) {
        fault(u"［子类说明］与同一子类前一试卷的不一致！"_s);
    }
}

void BankPlan::checkKeys(const std::vector<ImportPaper>& papers, ImportFaults& faults) const {
    const auto check = [&](qint32 next, std::size_t count, const QString& what) {
        if (next - 1 + static_cast<qint32>(count) > greatestKey) {
            faults.push_back({0, u"题库中%1的编号将超过 %2，不能导入！"_s.arg(what).arg(greatestKey)});
        }
    };
    std::size_t questions = 0;
    for (const auto& paper : papers) {
        questions += paper.questions.size();
    }
    check(GetNewID(u"Examination"_s, u"ExaminationID"_s), papers.size(), u"试卷"_s);
    check(GetNewID(u"ExaminationQuestion"_s, u"QuestionID"_s), questions, u"试题"_s);
}

QStringList BankPlan::notes(const std::vector<ImportPaper>& papers) {
    QStringList notes;
    QHash<const BankSubtype*, QString> bands;
    QSet<const BankSubtype*> noted;
    for (const auto& paper : papers) {
        const auto* sub = &subtype(paper);
        if (!bands.contains(sub)) {
            cExaminations there;
            const bool hasPapers = !sub->code.isEmpty() && there.FindByTypeCode(sub->code, true).Count() > 0;
            bands.insert(sub, hasPapers ? bandsText(*there.Item(1)) : bandsText(paper));
        }
        // A verdict is drawn from the bands of all papers of the subtype.
        if (bands.value(sub) != bandsText(paper) && !noted.contains(sub)) {
            noted.insert(sub);
            notes.append(
                u"测评子类［%1］下各试卷的得分范围或评价结果不一致，评价结果可能取自另一份试卷，请核对。"_s.arg(
                    paper.subtype));
        }
        if (scoresAnswerE(paper)) {
            notes.append(u"试卷［%1］中有答案 E 的分数不为 0，而测评时选择 E 不计分，请核对。"_s.arg(paper.number));
        }
    }
    return notes;
}

}  // namespace talvora
