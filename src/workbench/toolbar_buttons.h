#pragma once

namespace talvora {

class ToolBar;

/// Put the buttons of a module and their menus on its toolbar.
void addTestingButtons(ToolBar& toolbar);
void addTestingTypeButtons(ToolBar& toolbar);
void addPositionButtons(ToolBar& toolbar);
/// Of the models, the roles and the users, which have the same.
void addRecordButtons(ToolBar& toolbar);

}  // namespace talvora
