#pragma once

#include "setup/import/columns.h"

#include <array>

namespace talvora {

/// A question as an import file gives it.
struct ImportQuestion {
    int line = 0;
    QString text;
    QStringList answers;
    std::vector<qint16> scores;
};

struct ImportBand {
    QString lower;
    QString upper;
    QString word;
    QString explanation;

    bool isUsed() const { return !lower.isEmpty(); }
    /// As the paper stores it: "lower-upper", "-" for a band that is not used.
    QString scope() const { return lower + u'-' + upper; }
};

/// A paper as an import file gives it, with what its subtype needs should that have to be made.
struct ImportPaper {
    int line = 0;
    QString mainType;
    QString subtype;
    QString subtypeNote;
    QString number;
    qint16 minutes = 0;
    QString note;
    bool isDraft = false;
    QString author;
    QString auditing;
    QString approver;
    QString writeDate;
    QString auditingDate;
    QString approverDate;
    std::array<ImportBand, bandCount> bands;
    std::vector<ImportQuestion> questions;
};

/// Gathers the rows of an import file into papers, in the order in which these begin, and checks all that the file can
/// be held to by itself: what the editors of types, papers and questions would refuse, and that rows of one paper do
/// not contradict each other.
std::vector<ImportPaper> importPapersOf(const std::vector<ImportRow>& rows, ImportFaults& faults);

/// `text` as the database compares it: without regard to case, to half and full width and to blanks at its end.
QString comparable(const QString& text);

}  // namespace talvora
