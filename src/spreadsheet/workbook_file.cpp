#include "spreadsheet/workbook_file.h"

#include "platform/runtime_error.h"
#include "spreadsheet/sheet_layout.h"
#include "spreadsheet/workbook.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QSaveFile>
#include <QTemporaryDir>
#include <xlsxwriter.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr lxw_color_t Grey = 0xC0C0C0;

[[noreturn]] void fail(const QString& path, const QString& reason) {
    throw RuntimeError(errors::PathAccess, u"不能保存文件“%1”：%2"_s.arg(QDir::toNativeSeparators(path), reason));
}

/// The formats of a file, each made once.
class Formats {
 public:
    explicit Formats(lxw_workbook* file) : file_(file) {}

    /// nullptr for the plain look.
    lxw_format* of(const CellFormat& look, bool wrapped) {
        // Most cells look like the one before.
        if (look != look_ || wrapped != wrapped_) {
            look_ = look;
            wrapped_ = wrapped;
            format_ = find(look, wrapped);
        }
        return format_;
    }

 private:
    lxw_format* find(const CellFormat& look, bool wrapped) {
        if (look == CellFormat() && !wrapped) {
            return nullptr;
        }
        quint32 key = look.size;
        for (const bool part : {look.bold, look.shaded, look.boxed, look.left, look.middle, look.text, wrapped}) {
            key = key * 2 + (part ? 1 : 0);
        }
        lxw_format*& format = known_[key];
        if (!format) {
            format = make(look, wrapped);
        }
        return format;
    }

    lxw_format* make(const CellFormat& look, bool wrapped) {
        constexpr quint8 textFormat = 49;  // "@"
        lxw_format* format = workbook_add_format(file_);
        format_set_font_size(format, look.size);
        if (look.bold) {
            format_set_bold(format);
        }
        if (look.shaded) {
            format_set_pattern(format, LXW_PATTERN_SOLID);
            format_set_fg_color(format, Grey);
        }
        if (look.boxed) {
            format_set_border(format, LXW_BORDER_THIN);
        }
        if (look.left) {
            format_set_align(format, LXW_ALIGN_LEFT);
        }
        if (look.middle) {
            format_set_align(format, LXW_ALIGN_VERTICAL_CENTER);
        }
        if (look.text) {
            format_set_num_format_index(format, textFormat);
        }
        if (wrapped) {
            format_set_text_wrap(format);
        }
        return format;
    }

    lxw_workbook* file_;
    QHash<quint32, lxw_format*> known_;
    CellFormat look_;
    bool wrapped_ = false;
    lxw_format* format_ = nullptr;
};

/// Writes one workbook with the library. Row by row, which lets it keep no more than a row in memory, unless a merged
/// cell goes over several.
class Writer {
 public:
    Writer(const Workbook& workbook, const SheetLayout& layout, const QByteArray& path, QByteArray folder)
        : workbook_(workbook),
          layout_(layout),
          folder_(std::move(folder)),
          options_(options()),
          file_(workbook_new_opt(path.constData(), &options_)),
          sheet_(workbook_add_worksheet(file_, nullptr)),
          formats_(file_) {}

    lxw_error write() {
        if (!sheet_) {
            lxw_workbook_free(file_);
            return LXW_ERROR_CREATING_TMPFILE;
        }
        setUpPage();
        for (int column = 1; column <= workbook_.columns(); ++column) {
            const auto at = static_cast<lxw_col_t>(column - 1);
            worksheet_set_column_pixels(sheet_, at, at, static_cast<quint32>(layout_.columnWidth(column)), nullptr);
        }
        auto merge = merges_.cbegin();
        for (int row = 1; row <= workbook_.rows(); ++row) {
            if (layout_.rowHeight(row) != SheetLayout::DefaultHeight) {
                worksheet_set_row_pixels(sheet_, rowAt(row), static_cast<quint32>(layout_.rowHeight(row)), nullptr);
            }
            for (; merge != merges_.cend() && merge->row == row; ++merge) {
                worksheet_merge_range(sheet_, rowAt(merge->row), columnAt(merge->column), rowAt(merge->row2),
                                      columnAt(merge->column2), "", formatOf(merge->row, merge->column));
            }
            for (int column = 1; column <= workbook_.columns(); ++column) {
                writeCell(row, column);
            }
        }
        return workbook_close(file_);
    }

 private:
    static lxw_row_t rowAt(int row) { return static_cast<lxw_row_t>(row - 1); }
    static lxw_col_t columnAt(int column) { return static_cast<lxw_col_t>(column - 1); }

    lxw_workbook_options options() {
        merges_ = workbook_.merges();
        std::sort(merges_.begin(), merges_.end(),
                  [](const auto& one, const auto& other) { return one.row < other.row; });
        const bool flat = std::all_of(merges_.begin(), merges_.end(), [](const auto& m) { return m.row == m.row2; });
        lxw_workbook_options options{};
        options.constant_memory = flat ? LXW_TRUE : LXW_FALSE;
        options.tmpdir = folder_.data();
        return options;
    }

    void setUpPage() {
        constexpr uint8_t a4 = 9;
        constexpr double millimetresOfInch = 25.4;
        constexpr double margin = SheetPaper::MarginMillimetres / millimetresOfInch;
        constexpr double bottom = (SheetPaper::MarginMillimetres + SheetPaper::FooterMillimetres) / millimetresOfInch;
        const SheetPaper paper = sheetPaper(layout_);
        worksheet_set_paper(sheet_, a4);
        paper.landscape ? worksheet_set_landscape(sheet_) : worksheet_set_portrait(sheet_);
        worksheet_set_margins(sheet_, margin, margin, margin, bottom);
        const QString footer = u"&C"_s + pageWords(u"&P"_s, u"&N"_s);
        worksheet_set_footer(sheet_, footer.toUtf8().constData());
        if (workbook_.repeatedRow() > 0) {
            worksheet_repeat_rows(sheet_, rowAt(workbook_.repeatedRow()), rowAt(workbook_.repeatedRow()));
        }
        // Told as a fit and not as a scale, since the fonts of the other program decide how wide its columns are.
        worksheet_fit_to_pages(sheet_, 1, 0);
        if (!workbook_.blocks().empty()) {
            setUpBreaks(paper);
        }
        // A text of digits is meant as one; no cell is to be marked for it.
        worksheet_ignore_errors(sheet_, LXW_IGNORE_NUMBER_STORED_AS_TEXT, "A1:XFD1048576");
        const CellRange selection = workbook_.selection();
        worksheet_set_selection(sheet_, rowAt(selection.row), columnAt(selection.column), rowAt(selection.row2),
                                columnAt(selection.column2));
    }

    void setUpBreaks(const SheetPaper& paper) {
        constexpr std::size_t mostBreaks = 1023;
        std::vector<lxw_row_t> breaks;
        for (const SheetPage& page : sheetPages(workbook_, layout_, paper.pageHeight)) {
            if (page.first > 1 && breaks.size() < mostBreaks) {
                breaks.push_back(rowAt(page.first));
            }
        }
        breaks.push_back(0);
        worksheet_set_h_pagebreaks(sheet_, breaks.data());
    }

    lxw_format* formatOf(int row, int column) {
        return formats_.of(workbook_.format(row, column), layout_.wraps(workbook_, row, column));
    }

    void writeCell(int row, int column) {
        const Cell& cell = workbook_.cell(row, column);
        lxw_format* format = formatOf(row, column);
        switch (cell.kind) {
            case Cell::Kind::Text:
                worksheet_write_string(sheet_, rowAt(row), columnAt(column), cell.text, format);
                break;
            case Cell::Kind::Number:
                worksheet_write_number(sheet_, rowAt(row), columnAt(column), cell.number, format);
                break;
            case Cell::Kind::Empty:
                // The library leaves out a blank without a format.
                worksheet_write_blank(sheet_, rowAt(row), columnAt(column), format);
                break;
        }
    }

    const Workbook& workbook_;
    const SheetLayout& layout_;
    QByteArray folder_;
    std::vector<CellRange> merges_;
    lxw_workbook_options options_;
    lxw_workbook* file_;
    lxw_worksheet* sheet_;
    Formats formats_;
};

// The library does not notice when its intermediate files are cut short by a full disk.
bool hasRoom(const Workbook& workbook, const QString& folder) {
    constexpr qint64 markupOfCell = 64;
    const qint64 cells = qint64{workbook.rows()} * workbook.columns();
    constexpr qint64 copies = 2;
    // Asked of the folder itself: in a container the table of mounts may not hold it. An unknown room is room enough.
    std::error_code unknown;
    const auto space = std::filesystem::space(folder.toStdU16String(), unknown);
    return unknown || space.available > static_cast<quint64>(copies * (workbook.textBytes() + cells * markupOfCell));
}

}  // namespace

void saveWorkbook(const Workbook& workbook, const SheetLayout& layout, const QString& path) {
    // The library knows file names only in the system's own 8-bit code; the name that the user chose may need more.
    QTemporaryDir folder;
    if (!folder.isValid() || !hasRoom(workbook, folder.path())) {
        fail(path, u"临时文件夹不可写或空间不足"_s);
    }
    const QString draft = folder.filePath(u"sheet.xlsx"_s);
    const lxw_error error =
        Writer(workbook, layout, QFile::encodeName(draft), QFile::encodeName(folder.path())).write();
    if (error != LXW_NO_ERROR) {
        fail(path, QString::fromUtf8(lxw_strerror(error)));
    }
    QFile source(draft);
    QSaveFile target(path);
    if (!source.open(QIODevice::ReadOnly)) {
        fail(path, source.errorString());
    }
    if (!target.open(QIODevice::WriteOnly)) {
        fail(path, target.errorString());
    }
    constexpr qint64 block = 1 << 16;
    while (!source.atEnd()) {
        target.write(source.read(block));
    }
    if (source.error() != QFileDevice::NoError || !target.commit()) {
        fail(path, source.error() != QFileDevice::NoError ? source.errorString() : target.errorString());
    }
}

}  // namespace talvora
