#pragma once

class QRadioButton;

namespace talvora {

// The options of one parent, of which a user chooses one. The Tab key reaches the group at the chosen option, the arrow
// keys choose and go round.

/// Gives `option` its part in the group's one place in the tab order.
void shareTabStop(QRadioButton& option);

/// Where an arrow key leads: 1 for down and right, -1 for up and left, 0 for any other key.
int optionStep(int key);

/// Puts the focus on the usable option one step from `option`, behind the last on the first, and chooses it.
void chooseNeighbour(QRadioButton& option, int step);

}  // namespace talvora
