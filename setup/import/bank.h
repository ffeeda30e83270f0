#pragma once

#include "setup/import/paper.h"

#include <QHash>

namespace talvora {

/// A subtype as the bank has it, or as the papers of the file call for it.
struct BankSubtype {
    QString code;  ///< empty while it has to be made
    QStringList words;
    QStringList explanations;  ///< of the words, in their order
    QString note;
};

struct BankMainType {
    QString code;                          ///< empty while it has to be made
    QHash<QString, BankSubtype> subtypes;  ///< by comparable name
    int highestSubtype = 0;                ///< the greatest running number given
};

/// What the papers of an import file mean for the bank: the types that are there and those that have to be made. Reads
/// through cnnPublic, writes nothing.
class BankPlan {
 public:
    /// Checks the papers against the bank and against each other. Faults: a number that is taken, a word that its
    /// subtype does not know, more types or keys than the bank can hold.
    BankPlan(const std::vector<ImportPaper>& papers, ImportFaults& faults);

    BankMainType& mainType(const ImportPaper& paper) { return mainTypes_[comparable(paper.mainType)]; }
    BankSubtype& subtype(const ImportPaper& paper) { return mainType(paper).subtypes[comparable(paper.subtype)]; }

    /// What the user had better look at in the papers, though it is no fault.
    QStringList notes(const std::vector<ImportPaper>& papers);

 private:
    void load();
    void loadSubtypes(BankMainType& mainType);
    void take(const ImportPaper& paper, ImportFaults& faults);
    void checkKeys(const std::vector<ImportPaper>& papers, ImportFaults& faults) const;

    QHash<QString, BankMainType> mainTypes_;  ///< by comparable name
    int highestMainType_ = 0;                 ///< the greatest code given, and promised to the file's new types
    QStringList numbers_;                     ///< of the bank's papers, comparable
};

}  // namespace talvora
