#pragma once

#include <QString>

class QProgressBar;

namespace talvora {

class FlexGrid;

/// Writes a block for each test of the list of tests (or for each selected one): the person, the result, and every
/// question with its answers. Shows the workbook, as ExportList does. Subtotal rows are left out.
void ExportTestingReport(FlexGrid& grid, bool isPrint, const QString& title, QProgressBar& progressBar,
                         bool onlySelected);

/// The same for the list of papers: a block for each paper with its particulars and its questions.
void ExportPaperReport(FlexGrid& grid, bool isPrint, const QString& title, QProgressBar& progressBar,
                       bool onlySelected);

}  // namespace talvora
