#include "toolkit/forms/radio_group.h"

#include <QRadioButton>

namespace talvora {

namespace {

QList<QRadioButton*> groupOf(const QRadioButton& option) {
    return option.parentWidget()->findChildren<QRadioButton*>(Qt::FindDirectChildrenOnly);
}

}  // namespace

void shareTabStop(QRadioButton& option) {
    const auto placeTabStop = [&option] {
        if (!option.isChecked()) {
            return;
        }
        for (QRadioButton* one : groupOf(option)) {
            one->setFocusPolicy(one == &option ? Qt::StrongFocus : Qt::ClickFocus);
        }
    };
    QObject::connect(&option, &QRadioButton::toggled, &option, placeTabStop);
    placeTabStop();
}

int optionStep(int key) {
    switch (key) {
        case Qt::Key_Down:
        case Qt::Key_Right:
            return 1;
        case Qt::Key_Up:
        case Qt::Key_Left:
            return -1;
        default:
            return 0;
    }
}

void chooseNeighbour(QRadioButton& option, int step) {
    const auto group = groupOf(option);
    const auto count = group.size();
    const auto start = group.indexOf(&option);
    for (qsizetype i = 1; i < count; ++i) {
        QRadioButton* next = group[(start + count + i * step) % count];
        if (next->isEnabled() && next->isVisible()) {
            next->setFocus(Qt::OtherFocusReason);
            next->click();
            return;
        }
    }
}

}  // namespace talvora
