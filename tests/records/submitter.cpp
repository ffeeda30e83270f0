// A terminal that submits one test after the other, for the tests that kill it or run several at once:
//     submitter <database file or connection string> <number of this terminal> <number of rounds, 0 without end>
// Each round is a session of its own with one single paper and one model test. Each test stored is told on the output.

#include "core/mdlpublic.h"
#include "records/scoring_bank.h"

#include <QCoreApplication>

#include <cstdio>

namespace {

using namespace Qt::StringLiterals;
using namespace talvora;
using namespace talvora::test;

void tell(Status status) {
    std::puts(status == Status::Done ? "stored" : "failed");
    std::fflush(stdout);
}

/// The candidate marks the same letter everywhere. The name ends in it, so that an answer in another's family shows.
void submitRound(const QString& name, QChar letter) {
    const QString answers(6, letter);
    const SheetPlan order{u"001001"_s, u"条理性"_s, u"1"_s, answers};
    tell(submit(candidate(u"条理性"_s, name + u'a' + letter), false, {order}));
    tell(submit(candidate(u"主管模型"_s, name + u'b' + letter), true,
                {{u"001"_s, u"能力"_s, {}, {}}, order, {u"001002"_s, u"判断力"_s, u"2"_s, answers}}));
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const int terminal = arguments[2].toInt();
    const int rounds = arguments[3].toInt();
    for (int round = 0; rounds == 0 || round < rounds; ++round) {
        openTerminal(arguments[1]);
        submitRound(u"%1-%2"_s.arg(terminal).arg(round), u"ABCD"_s[(terminal + round) % 4]);
        cnnPublic.Close();
    }
    return 0;
}
