#include "toolkit/forms/scroll_body.h"

#include "toolkit/look/theme.h"

#include <QAbstractItemView>
#include <QBoxLayout>
#include <QGuiApplication>
#include <QItemSelectionModel>
#include <QScrollArea>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

// A view without a place of its own in the tab order.
class ScrollBody : public QScrollArea {
 public:
    explicit ScrollBody(QWidget* parent) : QScrollArea(parent) {
        setFocusPolicy(Qt::NoFocus);
        setFrameShape(QFrame::NoFrame);
        setWidgetResizable(true);
        setWidget(new QWidget);
    }

    /// Has the view follow the keyboard within its lists, which may be higher than the view.
    void followLists() {
        for (auto* list : widget()->findChildren<QAbstractItemView*>()) {
            if (list->selectionModel()) {
                connect(list->selectionModel(), &QItemSelectionModel::currentChanged, this,
                        [this, list](const QModelIndex& current) { showCell(*list, current); });
            }
        }
    }

 private:
    void showCell(const QAbstractItemView& list, const QModelIndex& cell) {
        // Not under the mouse, which has its cell in sight and would let go of another.
        if (list.hasFocus() && QGuiApplication::mouseButtons() == Qt::NoButton) {
            const QRect place = list.visualRect(cell);
            const QPoint centre = list.viewport()->mapTo(widget(), place.center());
            ensureVisible(centre.x(), centre.y(), 0, place.height());
        }
    }
};

void append(QBoxLayout& column, QLayoutItem* item, int stretch) {
    if (QWidget* control = item->widget()) {
        column.addWidget(control, stretch, item->alignment());
        delete item;
    } else if (QLayout* layout = item->layout()) {
        column.addLayout(layout, stretch);
    } else {
        column.addItem(item);
    }
}

}  // namespace

void makeScrollable(QWidget& window) {
    auto* column = qobject_cast<QVBoxLayout*>(window.layout());
    if (!column || window.findChild<ScrollBody*>()) {
        return;
    }
    // A control that changes its parent loses the focus.
    QWidget* focus = window.focusWidget();
    auto* view = new ScrollBody(&window);
    auto* body = new QVBoxLayout(view->widget());
    body->setContentsMargins({});
    body->setSpacing(column->spacing());
    const auto isButtons = [](QLayoutItem* item) {
        return item->layout() && item->layout()->objectName() == "layoutButtons"_L1;
    };
    while (column->count() > 0 && !isButtons(column->itemAt(0))) {
        const int stretch = column->stretch(0);
        append(*body, column->takeAt(0), stretch);
    }
    // It scrolls rather than squeezes what it holds: a toolbar would hide its buttons, a list its lines.
    view->widget()->setMinimumSize(body->sizeHint());
    column->insertWidget(0, view, 1);
    view->followLists();
    completeTheme();
    if (focus) {
        focus->setFocus(Qt::OtherFocusReason);
    }
}

void scrollIntoView(QWidget& control, Qt::FocusReason reason) {
    if (reason == Qt::MouseFocusReason || reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason) {
        return;
    }
    for (QWidget* parent = control.parentWidget(); parent && !control.isWindow(); parent = parent->parentWidget()) {
        if (auto* view = dynamic_cast<ScrollBody*>(parent)) {
            view->ensureWidgetVisible(&control);
            return;
        }
    }
}

}  // namespace talvora
