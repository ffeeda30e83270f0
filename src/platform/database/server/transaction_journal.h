#pragma once

#include <QStringList>

namespace talvora {

/// The changes of the transaction that is open, for making them again.
class TransactionJournal {
 public:
    void begin() {
        changes_.clear();
        characters_ = 0;
        repeatable_ = true;
    }

    void addChange(const QString& statement) {
        // Beyond this size it is the work of the set-up tool, which begins anew by itself.
        constexpr qsizetype mostCharacters = 1'000'000;
        characters_ += statement.size();
        repeatable_ = repeatable_ && characters_ <= mostCharacters;
        if (repeatable_) {
            changes_ += statement;
        } else {
            changes_.clear();
        }
    }

    /// What a query finds after a change, a new key for instance, would be another the second time.
    void addQuery() { repeatable_ = repeatable_ && characters_ == 0; }

    bool isRepeatable() const { return repeatable_; }
    const QStringList& changes() const { return changes_; }

 private:
    QStringList changes_;
    qsizetype characters_ = 0;
    bool repeatable_ = true;
};

}  // namespace talvora
