// A terminal that submits one test after the other, for the tests that kill it or run several at once:
//     submitter <database file> <number of this terminal> <number of rounds, 0 without end>
// Each round is a session of its own with one single paper and one model test. A line on the output tells of each test
// that was stored.

#include "core/mdlpublic.h"
#include "records/scoring_bank.h"
#include "records/terminals.h"
#include "support/database_fixture.h"

#include <QCoreApplication>

#include <cstdio>

namespace {

using namespace Qt::StringLiterals;
using namespace talvora;
using namespace talvora::test;

/// A candidate who marks the same letter everywhere. The education tells which, so that an answer in another's family
/// shows.
cTesting candidateOf(const QString& typeName, const QString& name, QChar letter) {
    cTesting test = candidate(typeName, name);
    test.Education = letter;
    return test;
}

void tell(Status status) {
    std::puts(status == Status::Done ? "stored" : "failed");
    std::fflush(stdout);
}

void submitRound(const QString& name, QChar letter) {
    const QString answers(terminalQuestions, letter);
    const auto paper = [](const QString& code) {
        return rowsOf(u"select ExaminationID from Examination where TypeCode='%1'"_s.arg(code));
    };
    tell(submit(candidateOf(u"条理性"_s, name + u'a', letter), false,
                {{u"001001"_s, u"条理性"_s, paper(u"001001"_s), answers}}));
    tell(submit(candidateOf(terminalModel, name + u'b', letter), true,
                {{u"001"_s, u"能力"_s, {}, {}},
                 {u"001001"_s, u"条理性"_s, paper(u"001001"_s), answers},
                 {u"001002"_s, u"判断力"_s, paper(u"001002"_s), answers}}));
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const int rounds = arguments[3].toInt();
    try {
        for (int round = 0; rounds == 0 || round < rounds; ++round) {
            openTerminal(arguments[1]);
            submitRound(u"%1-%2"_s.arg(arguments[2]).arg(round), u"ABCD"_s[(arguments[2].toInt() + round) % 4]);
            cnnPublic.Close();
        }
    } catch (const RuntimeError& error) {
        std::puts(error.what());
        return 1;
    }
    return 0;
}
