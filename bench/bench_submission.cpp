// A submission of 50 questions through cTesting::AddNew, on a database file.

#include "bench/bank.h"
#include "bench/plain_store.h"
#include "core/mdlpublic.h"

#include <benchmark/benchmark.h>

namespace talvora::bench {

namespace {

/// Measures one submission. The test is deleted again, out of the time, so that each finds the same tables.
void measureSubmission(benchmark::State& state, const Sitting& sitting, Costs& costs) {
    Status status{};
    costs.measure([&] { status = sitting.test.AddNew(false, sitting.testings, sitting.details); });
    if (status != Status::Done) {
        state.SkipWithError("the submission failed");
    }
    cTesting::Delete(cnnPublic.Execute(QStringLiteral("select max(TestingID) from TestingResult")).first().number32(0));
}

void submissionAgainstPlainSqlite(benchmark::State& state) {
    const Bank plainBank;
    const Bank bank;
    const Sitting sitting = bank.sitting();
    PlainDatabase plain(plainBank.file());
    PlainStore store(plain);
    Costs plainCosts;
    Costs costs;
    for (auto _ : state) {
        plainCosts.measure([&] { store.store(sitting); });
        store.forget();
        measureSubmission(state, sitting, costs);
        state.SetIterationTime(costs.last());
    }
    report(state, "talvora_ms", costs, "plain_ms", plainCosts);
}
BENCHMARK(submissionAgainstPlainSqlite)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(300);

void submissionOnALongHistory(benchmark::State& state) {
    constexpr int pastTests = 10'000;
    constexpr int perRound = 20;
    const Bank empty;
    const Bank full;
    full.addHistory(pastTests, true);
    const Sitting sitting = full.sitting();
    Costs emptyCosts;
    Costs costs;
    // Both in turn, some at a time: an opened file's first submission fills its caches and is left out.
    const auto round = [&](const Bank& bank, Costs& into) {
        Costs first;
        bank.open();
        measureSubmission(state, sitting, first);
        for (int i = 0; i < perRound; ++i) {
            measureSubmission(state, sitting, into);
        }
    };
    for (auto _ : state) {
        round(empty, emptyCosts);
        round(full, costs);
        state.SetIterationTime(costs.clock());
    }
    report(state, "full_ms", costs, "empty_ms", emptyCosts);
}
BENCHMARK(submissionOnALongHistory)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);

}  // namespace

}  // namespace talvora::bench
