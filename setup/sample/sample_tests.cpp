#include "setup/sample/sample_tests.h"

#include "models/csolution.h"
#include "organisation/cposition.h"
#include "platform/moment.h"
#include "setup/sample/candidates.h"
#include "testbank/cexamination.h"
#include "testbank/ctestingtype.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr auto answerLetters = "ABCDE"_L1;

/// The first level of the positions is departments, which nobody applies for.
constexpr int departmentDigits = 3;

/// What the tests are drawn from, read once.
struct Bank {
    std::vector<std::shared_ptr<cTestingType>> subtypes;
    QHash<QString, std::vector<std::shared_ptr<cExamination>>> papers;  // the finished ones by TypeCode
    QHash<int, cQuestions> questions;                                   // by paper
    std::vector<std::shared_ptr<cSolution>> models;
    std::vector<std::shared_ptr<cPosition>> positions;
};

Bank readBank() {
    Bank bank;
    cTestingTypes types;
    for (const auto& type : types.Find(TypeKind::All)) {
        cExaminations papers;
        papers.FindByTypeCode(type->NowCode, false);
        if (papers.Count() == 0) {
            continue;
        }
        bank.subtypes.push_back(type);
        bank.papers[type->NowCode].assign(papers.begin(), papers.end());
        for (const auto& paper : papers) {
            bank.questions.insert(paper->ExaminationID, cExamination::GetQuestions(paper->ExaminationID));
        }
    }
    cSolutions models;
    models.Find(0);
    bank.models.assign(models.begin(), models.end());
    cPositions positions;
    for (const auto& position : positions.Find({})) {
        if (position->PostCode.size() > departmentDigits) {
            bank.positions.push_back(position);
        }
    }
    return bank;
}

/// The letter that a candidate of the given ability (0 to 1) chooses: of the answers whose score comes nearest to what
/// the candidate is up to at this question, any one. Now and then a question is left out.
QString chosenAnswer(SampleChance& chance, const cQuestion& question, int answerAmount, double ability) {
    constexpr int oneInLeftOut = 40;
    constexpr double unsteadiness = 0.5;
    if (chance.below(oneInLeftOut) == 0) {
        return {};
    }
    int best = 0;
    for (int i = 0; i < answerAmount; ++i) {
        best = std::max<int>(best, question.*questionScores[static_cast<std::size_t>(i)]);
    }
    const double aim = chance.around(ability, unsteadiness) * best;
    const auto distance = [&](int i) { return std::abs(question.*questionScores[static_cast<std::size_t>(i)] - aim); };
    std::vector<int> nearest;
    for (int i = 0; i < answerAmount; ++i) {
        if (!nearest.empty() && distance(i) < distance(nearest.front())) {
            nearest.clear();
        }
        if (nearest.empty() || distance(i) == distance(nearest.front())) {
            nearest.push_back(i);
        }
    }
    return QString(answerLetters[chance.pick(nearest)]);
}

/// One test in the making: the rows below the header, and the answers.
class SampleTest {
 public:
    SampleTest(SampleChance& chance, const Bank& bank, cTesting head)
        : chance_(chance), bank_(bank), head_(std::move(head)) {
        constexpr double usualAbility = 0.66;
        constexpr double spread = 0.42;
        ability_ = chance_.around(usualAbility, spread);
    }

    void addDimension(const cDimension& line) { addRow(line.TypeCode, line.TypeName); }

    /// Sits a paper of the subtype, drawn from the finished ones.
    void sitPaper(const QString& typeCode, const QString& typeName) {
        const auto paper = chance_.pick(bank_.papers[typeCode]);
        const auto questions = bank_.questions.constFind(paper->ExaminationID);
        const auto row = addRow(typeCode, typeName);
        row->ExaminationID = QString::number(paper->ExaminationID);
        row->ExamQuestions = static_cast<qint16>(questions->Count());
        for (const auto& question : *questions) {
            addAnswer(*paper, *question);
        }
    }

    FinishedTest finish(bool isModel) const { return {head_, isModel, rows_, answers_}; }

 private:
    std::shared_ptr<cTesting> addRow(const QString& typeCode, const QString& typeName) {
        auto row = std::make_shared<cTesting>();
        row->TestingID = rows_.Count() + 1;
        row->TypeCode = typeCode;
        row->TypeName = typeName;
        return rows_.Add(row);
    }

    void addAnswer(const cExamination& paper, const cQuestion& question) {
        auto answer = std::make_shared<cTestingDetail>();
        answer->ID = answers_.Count() + 1;
        answer->ExaminationID = paper.ExaminationID;
        answer->QuestionName = question.QuestionName;
        for (std::size_t i = 0; i < static_cast<std::size_t>(paper.AnswerAmount); ++i) {
            (*answer).*detailAnswers[i] = question.*questionAnswers[i];
        }
        answer->SelectAnswer = chosenAnswer(chance_, question, paper.AnswerAmount, ability_);
        answers_.Add(answer);
    }

    SampleChance& chance_;
    const Bank& bank_;
    cTesting head_;
    double ability_ = 0;
    cTestings rows_;
    cTestingDetails answers_;
};

FinishedTest modelTest(SampleChance& chance, const Bank& bank, cTesting candidate) {
    constexpr int dimensionDigits = 3;
    const auto model = chance.pick(bank.models);
    candidate.TypeName = model->SolutionName;
    candidate.PostName = model->PostName;
    SampleTest test(chance, bank, candidate);
    cDimensions lines;
    for (const auto& line : lines.Find(model->SolutionID)) {
        if (line->TypeCode.size() == dimensionDigits) {
            test.addDimension(*line);
        } else {
            test.sitPaper(line->TypeCode, line->TypeName);
        }
    }
    return test.finish(true);
}

FinishedTest paperTest(SampleChance& chance, const Bank& bank, cTesting candidate) {
    const auto subtype = chance.pick(bank.subtypes);
    candidate.TypeName = subtype->Name;
    candidate.PostName = chance.pick(bank.positions)->PostName;
    SampleTest test(chance, bank, candidate);
    test.sitPaper(subtype->NowCode, subtype->Name);
    return test.finish(false);
}

std::vector<QDateTime> testingMoments(SampleChance& chance, int count) {
    constexpr int days = 180;
    constexpr int secondsOfWork = 8 * 3600;
    constexpr int friday = 5;
    const QTime morning(9, 0);
    std::vector<QDateTime> moments;
    for (int i = 0; i < count; ++i) {
        const QDate drawn = presentMoment().date().addDays(-1 - chance.below(days));
        const QDate day = drawn.addDays(std::min(0, friday - drawn.dayOfWeek()));
        moments.push_back(QDateTime(day, morning).addSecs(chance.below(secondsOfWork)));
    }
    std::sort(moments.begin(), moments.end());
    return moments;
}

}  // namespace

std::vector<FinishedTest> drawSampleTests(int count) {
    constexpr int oneInModels = 4;
    const Bank bank = readBank();
    SampleChance chance;
    std::vector<FinishedTest> tests;
    for (const auto& moment : testingMoments(chance, count)) {
        cTesting candidate = sampleCandidate(chance, moment.date());
        candidate.TestingDate = momentText(moment);
        const bool isModel = chance.below(oneInModels) == 0;
        tests.push_back(isModel ? modelTest(chance, bank, candidate) : paperTest(chance, bank, candidate));
    }
    return tests;
}

}  // namespace talvora
