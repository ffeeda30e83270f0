#pragma once

#include <QString>

namespace talvora {

class FlexGrid;
class frmMain;
class ToolBar;
struct DetailCaptions;

// What the commands of the workbench's toolbars share. The row of a command is the current one of the list when the
// command starts, -1 for none.

/// Selects a row from column 1 to the last. A row past the end, which somebody else may have deleted, stands for the
/// last one. In an empty list, and without a row, nothing happens.
void selectRow(FlexGrid& list, int row);

/// The code in the hidden key column of a row; empty without a row.
QString codeOf(const FlexGrid& list, int row);
/// The number in it.
qint16 keyOf(const FlexGrid& list, int row);

/// A command's refusal.
void refuse(const QString& text);

/// Asks before something is deleted. False for No, which is the default.
bool confirmed(const QString& question);

/// Reads the present module's list afresh.
void refill(frmMain& main);

/// Takes a deleted record's row off the list and selects the row that is current then.
void takeOff(FlexGrid& list, int row);

/// Runs "export", "print" and "exit", which every list has; other keys do nothing. `title` heads the sheet.
void runListCommand(frmMain& main, const QString& key, const QString& title);

/// What the toolbar of a plain list does with its records. `row` is the command's row.
struct RecordCommands {
    void (*add)(frmMain& main);
    void (*edit)(frmMain& main, int row);
    void (*remove)(FlexGrid& list, int row);
};

/// Runs "add", "edit" and "del" by `commands`, and what every list has as runListCommand does.
void runRecordCommand(frmMain& main, const QString& key, const QString& title, const RecordCommands& commands);

/// Opens or closes the detail pane, as the caption of the button "detail" says.
void toggleDetail(frmMain& main, ToolBar& toolbar, const DetailCaptions& captions);

}  // namespace talvora
