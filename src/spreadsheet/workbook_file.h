#pragma once

#include <QString>

namespace talvora {

class SheetLayout;
class Workbook;

/// Writes the workbook, with the measures of its layout, as `.xlsx` that Excel and LibreOffice show alike. A file that
/// stands there is replaced only when the new one is complete. Throws RuntimeError 75, with words for the user, when it
/// can't be written.
void saveWorkbook(const Workbook& workbook, const SheetLayout& layout, const QString& path);

}  // namespace talvora
