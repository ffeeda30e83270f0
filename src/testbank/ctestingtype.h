#pragma once

#include "core/collection.h"
#include "core/status.h"
#include "core/trimmed_text.h"

#include <QString>

#include <array>

namespace talvora {

/// The length of a type's code tells its level, and nothing else does.
inline constexpr qsizetype mainTypeCodeLength = 3;
inline constexpr qsizetype subtypeCodeLength = 6;

/// A test type: a main type when its code has three characters, a subtype when it has six.
struct cTestingType {
    QString AddType;  ///< a kind word without use: AddNew takes the kind as an argument
    LimitedText<50> Name;
    QString NowCode;
    QString Author;
    QString Auditing;
    QString Approver;
    // The evaluation words of a subtype, best first, and the explanation of each.
    QString TestingResult1;
    QString TestingResult2;
    QString TestingResult3;
    QString TestingResult4;
    QString TestingNote1;
    QString TestingNote2;
    QString TestingNote3;
    QString TestingNote4;
    QString WriteDate;
    QString AuditingDate;
    QString ApproverDate;
    QString Note;

    /// Adds a row under a new code: of the kind "parent" with the name alone, else a subtype under `parentCode` with
    /// this record's other members. The name goes in as given, not as the member Name would cut it.
    /// Taken when just one type of that level (of that main type, for a subtype) bears the name.
    Status AddNew(const QString& kind, const QString& parentCode, const QString& name) const;

    /// Writes name and this record's other members into the row of `code`, and carries changed words into the bands of
    /// the subtype's papers. Taken when just one other type, of whatever level, bears the name. An error of that
    /// test goes to the caller; a later one is passed over and reported as Failed, the other steps being done.
    Status Update(const QString& code, const QString& name) const;

    /// Dependants when subtypes stand under a main type, or papers under a subtype. A failing statement, even the test
    /// for them, is passed over and reported as Failed.
    static Status Delete(const QString& code);
};

/// The words of a subtype and their explanations in their order, for loops over them.
inline constexpr std::array<QString cTestingType::*, 4> testingTypeWords{
    &cTestingType::TestingResult1, &cTestingType::TestingResult2, &cTestingType::TestingResult3,
    &cTestingType::TestingResult4};
inline constexpr std::array<QString cTestingType::*, 4> testingTypeNotes{
    &cTestingType::TestingNote1, &cTestingType::TestingNote2, &cTestingType::TestingNote3, &cTestingType::TestingNote4};

/// What cTestingTypes::Find loads.
enum class TypeKind {
    All,
    Main,
    Under,  ///< what stands under a main type's code: its subtypes, and a main type whose code of four begins with it
    Detail  ///< the one type of a code
};

class cTestingTypes : public Collection<cTestingType, TextKey<&cTestingType::NowCode>> {
 public:
    /// Loads the types of the kind by code. All and Main do not look at `code`.
    cTestingTypes& Find(TypeKind kind, const QString& code = {});
};

}  // namespace talvora
