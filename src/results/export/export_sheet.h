#pragma once

#include "core/resume_next.h"
#include "spreadsheet/workbook.h"
#include "toolkit/application/busy.h"
#include "toolkit/application/event_pump.h"

#include <QString>

#include <concepts>
#include <optional>

class QProgressBar;

namespace talvora {

/// What the export routines have in common: a workbook that is filled step by step, each failing step passed over,
/// with the progress bar on and the busy pointer set; at the end it is shown.
class ExportSheet {
 public:
    /// Gives C1 the look of a title and writes `title` at row 1 of this column, which need not be C.
    ExportSheet(const QString& title, int titleColumn, QProgressBar& progressBar, int steps);
    ~ExportSheet();
    ExportSheet(const ExportSheet&) = delete;
    ExportSheet& operator=(const ExportSheet&) = delete;

    /// The sheet, for steps that can't fail and for those of `attempt`.
    Workbook& sheet() { return *sheet_; }

    /// Runs a step, whatever comes of it.
    template <class Step>
    void attempt(Step&& step) {
        steps_(std::forward<Step>(step));
    }

    /// Sets the cell to what `value` gives and lets waiting events through.
    template <std::invocable Value>
    void write(int row, int column, Value&& value) {
        steps_([&] { sheet_->SetCell(row, column, value()); });
        (*pump_)();
    }
    void write(int row, int column, const QString& text);

    /// Gives the block a look.
    void format(const CellRange& cells, void (Workbook::*look)());

    void setProgress(int value);

    /// Hides the bar, brings the pointer back, shows the workbook and, with `isPrint`, its print preview.
    void show(bool isPrint);

 private:
    QProgressBar& progressBar_;
    QString title_;
    std::optional<Workbook> sheet_{std::in_place};
    ResumeNext steps_;
    std::optional<BusyPointer> busy_{std::in_place};
    std::optional<EventPump> pump_{std::in_place};
};

}  // namespace talvora
