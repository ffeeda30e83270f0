#include "workbench/module_tree.h"

#include "platform/runtime_error.h"
#include "toolkit/look/theme.h"

#include <QKeyEvent>

#include <algorithm>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int IndexOutOfBounds = 35600;
constexpr int ElementNotFound = 35601;
constexpr int KeyRole = Qt::UserRole;
constexpr int TagRole = Qt::UserRole + 1;

}  // namespace

ModuleTree::ModuleTree(QWidget* parent) : QTreeWidget(parent) {
    connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* node) { Q_EMIT NodeClick(node); });
}

void ModuleTree::Clear() {
    nodes_.clear();
    clear();
}

void ModuleTree::AddNode(const QString& parent, const QString& key, const QString& text, const QString& tag) {
    auto* node = new QTreeWidgetItem({text});
    node->setSizeHint(0, QSize(0, theme::RowHeight));
    node->setData(0, KeyRole, key);
    node->setData(0, TagRole, tag);
    if (parent.isEmpty()) {
        addTopLevelItem(node);
    } else {
        const auto above = std::find_if(nodes_.begin(), nodes_.end(),
                                        [&](QTreeWidgetItem* other) { return other->data(0, KeyRole) == parent; });
        if (above == nodes_.end()) {
            delete node;
            throw RuntimeError(ElementNotFound, u"找不到元素: %1"_s.arg(parent));
        }
        (*above)->addChild(node);
    }
    nodes_.push_back(node);
}

QTreeWidgetItem* ModuleTree::node(int number) const {
    if (number < 1 || number > NodeCount()) {
        throw RuntimeError(IndexOutOfBounds, u"索引超出边界"_s);
    }
    return nodes_[static_cast<std::size_t>(number - 1)];
}

QString ModuleTree::Key(int number) const {
    return Node(number).data(0, KeyRole).toString();
}

QString ModuleTree::Tag(int number) const {
    return Tag(Node(number));
}

QString ModuleTree::Tag(const QTreeWidgetItem& node) {
    return node.data(0, TagRole).toString();
}

void ModuleTree::SelectNode(int number) {
    setCurrentItem(&Node(number));
}

void ModuleTree::keyPressEvent(QKeyEvent* event) {
    const QTreeWidgetItem* before = currentItem();
    QTreeWidget::keyPressEvent(event);
    if (currentItem() && (currentItem() != before || event->key() == Qt::Key_Space)) {
        Q_EMIT NodeClick(currentItem());
    }
}

QItemSelectionModel::SelectionFlags ModuleTree::selectionCommand(const QModelIndex& index, const QEvent* event) const {
    return index.isValid() ? QTreeWidget::selectionCommand(index, event) : QItemSelectionModel::NoUpdate;
}

}  // namespace talvora
