#include "workbench/splitter_bar.h"

#include <QMouseEvent>

namespace talvora {

void SplitterBar::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        Q_EMIT MouseDown();
    }
}

void SplitterBar::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton) {
        Q_EMIT MouseMove(event->position().toPoint());
    }
}

void SplitterBar::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        Q_EMIT MouseUp();
    }
}

void SplitterBar::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    setCursor(height() > width() ? Qt::SplitHCursor : Qt::SplitVCursor);
}

}  // namespace talvora
