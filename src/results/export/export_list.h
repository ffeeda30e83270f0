#pragma once

#include <QString>

class QProgressBar;

namespace talvora {

class FlexGrid;

/// The text of a cell's address. The letters of a column that is a multiple of 26 from 52 on end with the character
/// before "A", the at sign, which is no address: that is meant. RuntimeError 100000 when the column is too large for
/// two letters.
QString ColumnName(int row, int column);

/// Writes the list as it stands, header and all visible columns, to a workbook and shows it; with `isPrint` it opens
/// the print preview as well and returns when that has been closed. A list without records only gets a message.
void ExportList(FlexGrid& grid, bool isPrint, const QString& title, QProgressBar& progressBar);

}  // namespace talvora
