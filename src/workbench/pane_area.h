#pragma once

#include <QWidget>

namespace talvora {

/// What menu, toolbar and status bar leave of the workbench. It tells when it has another size.
class PaneArea : public QWidget {
    Q_OBJECT

 public:
    explicit PaneArea(QWidget* parent = nullptr);

 Q_SIGNALS:
    void Resize();

 protected:
    void resizeEvent(QResizeEvent* event) override;
};

}  // namespace talvora
