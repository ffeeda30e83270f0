// The list of all tests, cTestings::Find(0, ""), over 100,000 of them.

#include "bench/bank.h"
#include "bench/plain_database.h"
#include "core/mdlpublic.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

namespace talvora::bench {

namespace {

constexpr int tests = 100'000;

/// Steps the query and reads every column of every row by its type.
void readPlain(PlainStatement& query) {
    while (query.step()) {
        for (int column = 0; column < sqlite3_column_count(query.get()); ++column) {
            switch (sqlite3_column_type(query.get(), column)) {
                case SQLITE_INTEGER:
                    benchmark::DoNotOptimize(sqlite3_column_int64(query.get(), column));
                    break;
                case SQLITE_FLOAT:
                    benchmark::DoNotOptimize(sqlite3_column_double(query.get(), column));
                    break;
                case SQLITE_NULL:
                    break;
                default:
                    benchmark::DoNotOptimize(sqlite3_column_text16(query.get(), column));
                    benchmark::DoNotOptimize(sqlite3_column_bytes16(query.get(), column));
            }
        }
    }
    query.reset();
}

void listOfAllTests(benchmark::State& state) {
    const Bank bank;
    bank.addHistory(tests, false);
    PlainDatabase plain(bank.file());
    PlainStatement query = plain.prepare(
        "select * from TestingResult where (TypeCode is null and SolutionID>0) or "
        "(length(TypeCode)=6 and SolutionID=0) order by TestingNumber");
    bank.open();
    Costs plainCosts;
    Costs costs;
    double bytes = 0;
    for (auto _ : state) {
        plainCosts.measure([&] { readPlain(query); });
        cTestings testings;
        const double before = allocatedBytes();
        costs.measure([&] { testings.Find(0, {}); });
        bytes = allocatedBytes() - before;
        state.SetIterationTime(costs.last());
        if (testings.Count() != tests) {
            state.SkipWithError("the list is not complete");
        }
    }
    report(state, "talvora_ms", costs, "plain_ms", plainCosts);
    state.counters["bytes_per_row"] = bytes / tests;
}
BENCHMARK(listOfAllTests)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(15);

}  // namespace

}  // namespace talvora::bench
