// The workbench's lists as they are filled and shown, against the reading of their records alone.

#include "bench/bank.h"
#include "bench/plain_database.h"
#include "core/mdlpublic.h"
#include "toolkit/application/application.h"
#include "workbench/module_views.h"

#include <QScrollBar>
#include <QStringList>
#include <benchmark/benchmark.h>

#include <algorithm>

namespace talvora::bench {

namespace {

using namespace Qt::StringLiterals;

constexpr int tests = 100'000;
constexpr int subtypes = 200;
constexpr int papers = 1'000;
constexpr double thousandth = 1e-3;

/// A list of the size that it has in the workbench, on the screen.
struct ShownGrid {
    FlexGrid grid;

    ShownGrid() {
        constexpr QSize usual(1100, 600);
        grid.resize(usual);
        grid.show();
        QCoreApplication::processEvents();
    }
    /// Until the list is laid out and painted.
    void fill(const QString& module) {
        FillModuleGrid(grid, module);
        QCoreApplication::processEvents();
    }
};

/// The list of all tests, each tenth of them that of a competency model and so with a coloured row.
void fillHistory(const Bank& bank) {
    bank.addHistory(tests, false);
    PlainDatabase(bank.file()).execute("update TestingResult set TypeCode=null, SolutionID=1 where TestingID%10=0");
    bank.open();
}

void viewOfAllTests(benchmark::State& state) {
    const Bank bank;
    fillHistory(bank);
    ShownGrid shown;
    Costs alone;
    Costs view;
    double bytes = 0;
    for (auto _ : state) {
        {
            cTestings testings;
            alone.measure([&] { testings.Find(0, {}); });
        }
        shown.grid.setRows(1);
        QCoreApplication::processEvents();
        const double before = allocatedBytes();
        view.measure([&] { shown.fill(u"testing"_s); });
        bytes = allocatedBytes() - before;
        state.SetIterationTime(view.last());
        if (shown.grid.Rows() != tests + 1) {
            state.SkipWithError("the list is not complete");
        }
    }
    report(state, "view_ms", view, "find_ms", alone);
    state.counters["bytes_per_row"] = bytes / tests;
}
BENCHMARK(viewOfAllTests)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(15);

void scrollingAllTests(benchmark::State& state) {
    const Bank bank;
    fillHistory(bank);
    ShownGrid shown;
    shown.fill(u"testing"_s);
    QScrollBar* bar = shown.grid.verticalScrollBar();
    Costs steps;
    double longest = 0;
    int step = 0;
    for (auto _ : state) {
        // Page by page, and now and then from end to end.
        constexpr int leap = 10;
        const bool leaps = ++step % leap == 0;
        steps.measure([&] {
            bar->setValue(leaps ? bar->maximum() - bar->value() : bar->value() + bar->pageStep());
            QCoreApplication::processEvents();
        });
        state.SetIterationTime(steps.last());
        longest = std::max(longest, steps.last());
    }
    state.counters["longest_ms"] = longest / thousandth;
}
BENCHMARK(scrollingAllTests)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(300);

void foldingAHundredThousandRows(benchmark::State& state) {
    constexpr int rowsOfNode = 100;
    ShownGrid shown;
    shown.grid.setOutlineBar(GridOutlineBar::CompleteLeaf);
    shown.grid.setFormatString(u"名称                    |说明"_s);
    for (int row = 1; row <= tests; ++row) {
        shown.grid.AddItem(QString::number(row) + u"\t说明"_s);
        if (row % rowsOfNode == 1) {
            shown.grid.setIsSubtotal(row, true);
            shown.grid.setRowOutlineLevel(row, 1);
        }
    }
    QCoreApplication::processEvents();
    Costs one;
    Costs all;
    bool folded = false;
    for (auto _ : state) {
        folded = !folded;
        one.measure([&] {
            shown.grid.setIsCollapsed(1, folded);
            QCoreApplication::processEvents();
        });
        all.measure([&] {
            shown.grid.Outline(folded ? 1 : 2);
            QCoreApplication::processEvents();
        });
        state.SetIterationTime(all.last());
    }
    state.counters["one_ms"] = one.clock() / thousandth;
    state.counters["all_ms"] = all.clock() / thousandth;
}
BENCHMARK(foldingAHundredThousandRows)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(50);

void addTypesAndPapers(const Bank& bank) {
    cnnPublic.Close();
    PlainDatabase plain(bank.file());
    plain.execute("begin");
    const auto run = [&](const char* sql, int rows) {
        PlainStatement statement = plain.prepare(sql);
        statement.bind(1, qint64{rows});
        statement.run();
    };
    run("with recursive n(i) as (select 0 union all select i+1 from n where i+1<?1) insert into TestingType "
        "(TypeCode,TestingType,Author,WriteDate) select printf('%03d%03d',i/10+1,i%10+1),'子类'||i,'张三','2010-09-05' "
        "from n union all select printf('%03d',i/10+1),'主类'||i,null,null from n where i%10=0",
        subtypes);
    run("with recursive n(i) as (select 0 union all select i+1 from n where i+1<?1) insert into Examination "
        "(TypeCode,ExaminationNum,Author,Auditing,Approver,WriteDate,AnswerAmount,TestingTime,Note,Status) "
        "select printf('%03d%03d',i%200/10+1,i%10+1),'SJ-'||i,'张三','李四','王五','2010-09-05',4,30,'说明',"
        "case i%20 when 0 then '0 - 建立中' else '1 - 已完成' end from n",
        papers);
    plain.execute(
        "insert into ExaminationQuestion (ExaminationID,QuestionName,Answer1,Score1,Answer2,Score2) select "
        "p.ExaminationID,q.QuestionName,q.Answer1,1,q.Answer2,2 from Examination p,ExaminationQuestion q "
        "where p.ExaminationID>1 and q.ExaminationID=1 and q.QuestionID<=20");
    plain.execute("commit");
    plain.execute("analyze");
    bank.open();
}

void viewOfAllPapers(benchmark::State& state) {
    const Bank bank;
    addTypesAndPapers(bank);
    ShownGrid shown;
    QStringList statements;
    cnnPublic.setObserver([&](const QString& statement) { statements += statement; });
    shown.fill(u"testingtype"_s);
    cnnPublic.setObserver({});
    if (statements.size() != 1 + subtypes + papers + 1) {
        state.SkipWithError("not the expected statements");
    }
    Costs bare;
    Costs view;
    for (auto _ : state) {
        bare.measure([&] {
            for (const QString& statement : statements) {
                benchmark::DoNotOptimize(cnnPublic.Execute(statement).RecordCount());
            }
        });
        view.measure([&] { shown.fill(u"testingtype"_s); });
        state.SetIterationTime(view.last());
    }
    report(state, "view_ms", view, "bare_ms", bare);
    state.counters["statements"] = static_cast<double>(statements.size());
}
BENCHMARK(viewOfAllPapers)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(30);

}  // namespace

}  // namespace talvora::bench

int main(int argc, char** argv) {
    const talvora::Application application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
