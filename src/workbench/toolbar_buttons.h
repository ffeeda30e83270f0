#pragma once

#include <QStringView>

namespace talvora {

class ToolBar;

/// Put the buttons of a module and their menus on its toolbar.
void addTestingButtons(ToolBar& toolbar);
void addTestingTypeButtons(ToolBar& toolbar);
void addPositionButtons(ToolBar& toolbar);
/// Of the models, the roles and the users, which have the same.
void addRecordButtons(ToolBar& toolbar);

/// Mark the level that a list is folded to in the menu of its levels, and no other.
void markTypeLevel(ToolBar& toolbar, int level);
void markPositionLevel(ToolBar& toolbar, int level);

/// The captions of the button "detail". Their blanks differ with the occasion, which is meant; compare them without.
struct DetailCaptions {
    QStringView show;       ///< at first
    QStringView hide;       ///< while the pane is open
    QStringView showAgain;  ///< once the button has closed it
    QStringView showAnew;   ///< once another module has closed it
};
inline constexpr DetailCaptions questionCaptions{u"显示试题", u"隐藏试题 ", u"显示试题 ", u" 显示试题"};
inline constexpr DetailCaptions answerCaptions{u"显示明细", u"隐藏明细", u"显示明细", u"显示明细"};

/// Has the button offer to show the pane, which another module has closed.
void offerDetail(ToolBar& toolbar, const DetailCaptions& captions);

}  // namespace talvora
