#pragma once

#include <QStringList>

namespace talvora {

/// The changes of the transaction that is open, for making them again.
class TransactionJournal {
 public:
    void begin() {
        changes_.clear();
        repeatable_ = true;
    }

    void addChange(const QString& statement) {
        // A series of this length is an import, which begins anew by itself.
        constexpr qsizetype longest = 1000;
        if (changes_.size() == longest) {
            repeatable_ = false;
        }
        if (repeatable_) {
            changes_ += statement;
        }
    }

    /// What a query finds after a change, a new key for instance, would be another the second time.
    void addQuery() { repeatable_ = repeatable_ && changes_.isEmpty(); }

    bool isRepeatable() const { return repeatable_; }
    const QStringList& changes() const { return changes_; }

 private:
    QStringList changes_;
    bool repeatable_ = true;
};

}  // namespace talvora
