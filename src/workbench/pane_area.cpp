#include "workbench/pane_area.h"

namespace talvora {

PaneArea::PaneArea(QWidget* parent) : QWidget(parent) {
    // A plain widget of a class of its own shows its style sheet's ground only so.
    setAttribute(Qt::WA_StyledBackground);
}

void PaneArea::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Q_EMIT Resize();
}

}  // namespace talvora
