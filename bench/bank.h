#pragma once

#include "bench/median.h"
#include "results/ctesting.h"
#include "results/ctestingdetail.h"

#include <QTemporaryDir>
#include <benchmark/benchmark.h>

#include <chrono>
#include <ctime>
#include <vector>

namespace talvora::bench {

inline constexpr int questionsOfPaper = 50;
inline constexpr int answersOfQuestion = 4;

/// A test as the test window hands it in.
struct Sitting {
    cTesting test;
    cTestings testings;
    cTestingDetails details;
};

/// A database file with the tables and one paper of 50 questions, in a folder that goes when the bank goes.
class Bank {
 public:
    Bank();
    ~Bank();

    QString file() const { return folder_.filePath(QStringLiteral("bench.db")); }
    int paper() const { return paper_; }

    /// Opens cnnPublic on the file, as the program does; closes what it had open.
    void open() const;

    /// Stores past single-paper tests, scored, straight through SQLite. With `answers` each has its 50 answers.
    void addHistory(int tests, bool answers) const;

    /// A sitting of the paper with every question answered.
    Sitting sitting() const;

 private:
    QTemporaryDir folder_;
    int paper_ = 0;
};

/// What runs of one kind took, run by run: on the clock, and of the processor. A commit waits for the disk, which only
/// the clock sees.
class Costs {
 public:
    template <class Work>
    void measure(Work&& work) {
        const auto start = std::chrono::steady_clock::now();
        const std::clock_t busy = std::clock();
        work();
        cpu_.push_back(static_cast<double>(std::clock() - busy) / CLOCKS_PER_SEC);
        clock_.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }

    double last() const { return clock_.back(); }
    /// The middle run, in seconds.
    double clock() const { return median(clock_); }
    double cpu() const { return median(cpu_); }

 private:
    std::vector<double> clock_;
    std::vector<double> cpu_;
};

/// Puts both costs in milliseconds under their names, and how many times the first is of the second.
void report(benchmark::State& state, const char* name, const Costs& costs, const char* otherName, const Costs& other);

/// The bytes that are allocated now; 0 where the platform does not tell.
double allocatedBytes();

}  // namespace talvora::bench
