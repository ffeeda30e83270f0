#pragma once

#include <QString>

namespace talvora {

class FlexGrid;
class frmMain;
class ToolBar;

/// What the commands of the workbench's toolbars share. The row of a command is the current one of the list when the
/// command starts.

/// The number of the list's current row, 0 when it has none.
int chosenRow(const FlexGrid& list);

/// Selects a row from column 1 to the last. A row past the end, which somebody else may have deleted, stands for the
/// last one. In an empty list, and for row 0, nothing happens.
void selectRow(FlexGrid& list, int row);

/// The number in the hidden key column of a row.
qint16 keyOf(const FlexGrid& list, int row);

/// A command's refusal. True, so that a guard can be read as one condition.
bool refuse(const QString& text);

/// Asks before something is deleted. False for No, which is the default.
bool confirmed(const QString& question);

/// Reads the present module's list afresh.
void refill(const frmMain& main);

/// Takes a deleted record's row off the list and selects the row that is current then.
void takeOff(FlexGrid& list, int row);

/// Runs "export", "print" and "exit", which every list has; other keys do nothing. `title` heads the sheet.
void runListCommand(const frmMain& main, const QString& key, const QString& title);

/// What the toolbar of a plain list does with its records. `row` is the command's row, 0 for none.
struct RecordCommands {
    void (*add)(const frmMain& main);
    void (*edit)(const frmMain& main, int row);
    void (*remove)(FlexGrid& list, int row);
};

/// Runs "add", "edit" and "del" by `commands`, and what every list has as runListCommand does.
void runRecordCommand(const frmMain& main, const QString& key, const QString& title, const RecordCommands& commands);

/// The words on a button that opens and closes the detail pane.
struct DetailCaptions {
    QString show;       ///< says that the next press opens the pane, blanks aside
    QString hide;       ///< set when it has been opened
    QString showAgain;  ///< set when it has been closed
};

/// Opens or closes the detail pane, as the caption of the button "detail" says.
void toggleDetail(frmMain& main, ToolBar& toolbar, const DetailCaptions& captions);

}  // namespace talvora
