#pragma once

#include <QFrame>
#include <QPoint>

namespace talvora {

/// The strip between two panes by which the user moves their border. It tells what the mouse does and moves nothing
/// itself. Its pointer is that of its direction: a strip that is higher than wide moves sideways.
class SplitterBar : public QFrame {
    Q_OBJECT

 public:
    using QFrame::QFrame;

 Q_SIGNALS:
    void MouseDown();
    /// The mouse moves with the button held. `place` is in the strip's own coordinates.
    void MouseMove(QPoint place);
    void MouseUp();

 protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
};

}  // namespace talvora
