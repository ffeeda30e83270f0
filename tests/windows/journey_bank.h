#pragma once

#include "support/database_fixture.h"
#include "support/windows.h"
#include "toolkit/controls/combobox.h"
#include "toolkit/grid/flexgrid.h"

#include <QString>

namespace talvora::test {

/// Window tests on a small bank of their own:
///
///     001    职业素养     001001 责任心    paper ZR-1, 3 questions of 4 answers (1 to 4 points), 20 minutes
///                         001002 诚信      a draft only
///     002    专业能力     002001 逻辑推理  papers LJ-1 and LJ-2, 2 questions of 2 answers (1 or 2 points), 1 minute
///                         002002 沟通      paper GT-1, 2 questions of 5 answers (1 to 5 points), no time limit
///
/// positions 总经理, below it 销售经理, below that 销售专员; and the model 销售经理模型 of 销售经理 with 责任心 (weight
/// 0.5) and 逻辑推理 (weight 0.25).
class JourneyTest : public WindowTest {
 protected:
    JourneyTest();

 private:
    EmbeddedDatabase database_;
};

/// A person whose identity number is right.
inline const QString rightNumber = QStringLiteral("440524188001010014");

void setOption(const QString& name, const QString& value);

/// Chooses an item of a list with the arrow keys, as a user does. Fails when there is none of that text.
void choose(ComboBox* list, const QString& text);

/// Presses a button, which is answered by exactly these words of warning, and then the focus is on the field.
void refuses(QAbstractButton* button, const QString& words, const QWidget* field);

/// Clicks a cell with the mouse, after bringing it into view.
void clickCell(FlexGrid* grid, int row, int col);

/// Clicks the answer `letter` of the question `number`, counted over all sections from 1.
void answer(FlexGrid* grid, int number, QChar letter);

/// The letters of the answers that are marked, question by question, '-' for none.
QString marks(const FlexGrid* grid);

}  // namespace talvora::test
