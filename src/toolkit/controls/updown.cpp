#include "toolkit/controls/updown.h"

#include "platform/numbers.h"
#include "toolkit/look/icons.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace talvora {

using namespace Qt::StringLiterals;

UpDown::UpDown(QWidget* parent) : QWidget(parent) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    up_ = addButton(u"chevron-up"_s, 1);
    down_ = addButton(u"chevron-down"_s, -1);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Maximum);
}

QSize UpDown::sizeHint() const {
    const QSize own = QWidget::sizeHint();
    return field_ ? QSize(own.width(), field_->sizeHint().height()) : own;
}

QAbstractButton* UpDown::addButton(const QString& picture, int direction) {
    constexpr QSize pictureSize(10, 10);
    auto* button = new QToolButton(this);
    button->setIcon(icon(picture));
    button->setIconSize(pictureSize);
    button->setAutoRepeat(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setAccessibleName(direction > 0 ? u"增加"_s : u"减少"_s);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    layout()->addWidget(button);
    connect(button, &QToolButton::clicked, this, [=, this] { press(direction); });
    return button;
}

void UpDown::setBuddy(QLineEdit* field) {
    field_ = field;
    field_->installEventFilter(this);
    updateGeometry();
}

void UpDown::setRange(int least, int most, int step) {
    least_ = least;
    most_ = most;
    step_ = step;
}

void UpDown::press(int direction) {
    if (field_ && step_ > 0) {
        const int stepped = static_cast<int>(leadingNumber(field_->text())) + direction * step_;
        field_->setText(QString::number(std::clamp(stepped, least_, most_)));
    }
    direction > 0 ? Q_EMIT UpClick() : Q_EMIT DownClick();
}

bool UpDown::eventFilter(QObject* receiver, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down) {
            (key == Qt::Key_Up ? up_ : down_)->click();
            return true;
        }
    }
    return QWidget::eventFilter(receiver, event);
}

}  // namespace talvora
