#pragma once

#include <QWidget>

class QAbstractButton;
class QLineEdit;

namespace talvora {

/// Two spin buttons, up above down, beside a text field. They repeat while they are held. Tied to a field, its keys Up
/// and Down press them as well; without that they have no place in the tab order.
class UpDown : public QWidget {
    Q_OBJECT

 public:
    explicit UpDown(QWidget* parent = nullptr);

    /// Ties the buttons to `field`, which must outlive them or share their window.
    void setBuddy(QLineEdit* field);

    /// Has the buttons step the whole number in the tied field, which they don't take beyond `least` and `most`. Where
    /// no range is set, the buttons only raise their clicks.
    void setRange(int least, int most, int step = 1);

    /// As high as the tied field.
    QSize sizeHint() const override;

 Q_SIGNALS:
    void UpClick();
    void DownClick();

 protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
    QAbstractButton* addButton(const QString& picture, int direction);
    void press(int direction);

    QAbstractButton* up_;
    QAbstractButton* down_;
    QLineEdit* field_ = nullptr;
    int least_ = 0;
    int most_ = 0;
    int step_ = 0;
};

}  // namespace talvora
