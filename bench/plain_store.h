#pragma once

#include "bench/bank.h"
#include "bench/plain_database.h"

#include <array>

namespace talvora::bench {

/// What cTesting::AddNew does with a single paper, as one would write it by hand for SQLite: the same reads, inserts
/// and updates in the same transaction, in statements that are prepared once, with values bound and not built into
/// text.
class PlainStore {
 public:
    explicit PlainStore(PlainDatabase& database);

    void store(const Sitting& sitting);
    /// Deletes the test that was stored last.
    void forget();

 private:
    void insertRow(const Sitting& sitting);
    void insertDetail(const cTestingDetail& detail);

    PlainStatement begin_;
    PlainStatement commit_;
    PlainStatement highestNumber_;
    PlainStatement insertRow_;
    PlainStatement highestRow_;
    PlainStatement answerAmount_;
    PlainStatement insertDetail_;
    PlainStatement scoreDetails_;
    PlainStatement sum_;
    PlainStatement count_;
    std::array<PlainStatement, 5> bands_;
    PlainStatement clearModel_;
    PlainStatement deleteDetails_;
    PlainStatement deleteRow_;
    qint64 number_ = 0;
    qint64 row_ = 0;
};

}  // namespace talvora::bench
