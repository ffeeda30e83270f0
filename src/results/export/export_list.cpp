#include "results/export/export_list.h"

#include "platform/numbers.h"
#include "platform/runtime_error.h"
#include "results/export/export_sheet.h"
#include "toolkit/forms/prompts.h"
#include "toolkit/grid/flexgrid.h"

namespace talvora {

using namespace Qt::StringLiterals;

QString ColumnName(int row, int column) {
    constexpr int letters = 26;
    constexpr int tooLarge = 100000;
    const auto letter = [](int number) { return QChar(u'A' + number - 1); };
    QString name;
    if (column <= letters) {
        name = letter(column);
    } else {
        const int high = column / letters;
        if (high > letters) {
            throw RuntimeError(tooLarge, u"列数过大,发生错误"_s);
        }
        // A remainder of 0 gives the at sign: that is meant.
        name = QString(letter(high)) + letter(column % letters);
    }
    return name + QString::number(row);
}

void ExportList(FlexGrid& grid, bool isPrint, const QString& title, QProgressBar& progressBar) {
    const int rows = grid.Rows();
    const int columns = grid.Cols();
    if (rows <= 1) {
        MsgBox(u"没有数据记录，不需导出！"_s, vbInformation);
        return;
    }
    constexpr int headerRow = 2;
    ExportSheet output(title, toInt32(columns / 2.0), progressBar, rows - 1);
    int k = 0;
    // The leading ' keeps texts of digits as they are.
    QString forced = u"'"_s;
    for (int row = 0; row < rows; ++row) {
        output.setProgress(row);
        k = 0;
        for (int column = 0; column < columns; ++column) {
            if (!grid.ColHidden(column)) {
                output.write(row + headerRow, k + 1, [&]() -> const QString& {
                    forced.truncate(1);
                    return forced += grid.TextMatrix(row, column);
                });
                ++k;
            }
        }
    }
    // By the text of the address and not by numbers: for some columns it is none, and the sheet then stays plain.
    const auto formatDownTo = [&](int lastRow, void (Workbook::*look)()) {
        output.attempt([&] {
            output.sheet().SelectRange(ColumnName(headerRow, 1) + u':' + ColumnName(lastRow, k));
            (output.sheet().*look)();
        });
    };
    formatDownTo(headerRow, &Workbook::Shade);
    formatDownTo(rows + 1, &Workbook::Box);
    output.sheet().RepeatRow(headerRow);
    output.show(isPrint);
}

}  // namespace talvora
