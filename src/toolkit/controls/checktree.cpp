#include "toolkit/controls/checktree.h"

#include "toolkit/look/theme.h"

#include <QPainter>
#include <QStyledItemDelegate>

#include <algorithm>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int TallyMargin = 12;
constexpr int TallyWidth = 80;  // with the box that stands in front of the text

struct Tally {
    int checked = 0;
    int all = 0;
};

// The ends of the branches are what is granted or chosen; the nodes between only arrange them.
Tally tallyUnder(const CheckNode& node) {
    Tally tally;
    for (int i = 0; i < node.childCount(); ++i) {
        const auto& child = static_cast<const CheckNode&>(*node.child(i));
        const Tally below = child.childCount() > 0 ? tallyUnder(child) : Tally{child.Checked() ? 1 : 0, 1};
        tally.checked += below.checked;
        tally.all += below.all;
    }
    return tally;
}

class CheckDelegate : public QStyledItemDelegate {
 public:
    explicit CheckDelegate(CheckTree* tree) : QStyledItemDelegate(tree), tree_(tree) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, index);
        const Tally tally = tallyUnder(nodeAt(index));
        if (tally.all == 0) {
            return;
        }
        painter->save();
        painter->setFont(option.font);
        painter->setPen(tally.checked > 0 ? theme::Accent : theme::TextQuiet);
        painter->drawText(option.rect.adjusted(0, 0, -TallyMargin, 0), Qt::AlignRight | Qt::AlignVCenter,
                          u"%1 / %2"_s.arg(tally.checked).arg(tally.all));
        painter->restore();
    }

    // The one place where a user's click or Space changes a box.
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override {
        CheckNode& node = nodeAt(index);
        const bool before = node.Checked();
        const bool handled = QStyledItemDelegate::editorEvent(event, model, option, index);
        if (node.Checked() != before) {
            node.setCheckedDown(!before);
            tree_->viewport()->update();  // the tallies of the nodes above
        }
        return handled;
    }

 protected:
    // A long text makes room for the tally.
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->state &= ~QStyle::State_HasFocus;  // the ground of the whole row shows where the focus is
        if (index.model()->hasChildren(index) && option->rect.width() > TallyWidth) {
            option->text =
                option->fontMetrics.elidedText(option->text, Qt::ElideRight, option->rect.width() - TallyWidth);
        }
    }

 private:
    CheckNode& nodeAt(const QModelIndex& index) const { return static_cast<CheckNode&>(*tree_->itemFromIndex(index)); }

    CheckTree* tree_;
};

}  // namespace

CheckNode::CheckNode(const QString& key, const QString& text, const QString& tag)
    : QTreeWidgetItem(QStringList(text)), Key(key), Tag(tag) {
    setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    setChecked(false);
}

bool CheckNode::Checked() const {
    return checkState(0) == Qt::Checked;
}

void CheckNode::setChecked(bool checked) {
    setCheckState(0, checked ? Qt::Checked : Qt::Unchecked);
}

void CheckNode::setCheckedDown(bool checked) {
    setChecked(checked);
    for (int i = 0; i < childCount(); ++i) {
        static_cast<CheckNode*>(child(i))->setCheckedDown(checked);
    }
}

CheckTree::CheckTree(QWidget* parent) : QTreeWidget(parent) {
    setHeaderHidden(true);
    setColumnCount(1);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setItemDelegate(new CheckDelegate(this));
}

CheckNode* CheckTree::AddNode(CheckNode* parent, const QString& key, const QString& text, const QString& tag) {
    auto* node = new CheckNode(key, text, tag);
    if (parent) {
        parent->addChild(node);
        setRootIsDecorated(true);
    } else {
        addTopLevelItem(node);
    }
    nodes_ += node;
    return node;
}

CheckNode* CheckTree::Node(const QString& key) const {
    const auto found = std::find_if(nodes_.begin(), nodes_.end(), [&](CheckNode* node) { return node->Key == key; });
    return found == nodes_.end() ? nullptr : *found;
}

void CheckTree::focusInEvent(QFocusEvent* event) {
    QTreeWidget::focusInEvent(event);
    // What the toolkit makes the current row on first entering it does not select.
    if (currentItem()) {
        currentItem()->setSelected(true);
    }
}

void CheckTree::Clear() {
    nodes_.clear();
    clear();
    setRootIsDecorated(false);
}

}  // namespace talvora
