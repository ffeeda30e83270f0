#pragma once

#include <QList>
#include <QString>
#include <QTreeWidget>

namespace talvora {

/// A row of a CheckTree: what it says, and what it stands for.
class CheckNode : public QTreeWidgetItem {
 public:
    CheckNode(const QString& key, const QString& text, const QString& tag);

    const QString Key;
    const QString Tag;

    bool Checked() const;
    /// Checks this node alone.
    void setChecked(bool checked);
    /// Checks this node and everything under it.
    void setCheckedDown(bool checked);
};

/// A tree whose nodes have check boxes, or a plain check list when no node has children. A user's tick goes down to
/// everything under the node and never up to its parent, so a parent's box tells nothing of its children: how many of
/// them are ticked stands at the end of its row instead. Space ticks, the arrows walk and unfold, typing finds.
class CheckTree : public QTreeWidget {
 public:
    explicit CheckTree(QWidget* parent = nullptr);

    /// Appends an unchecked, folded node under `parent`, at the top for nullptr.
    CheckNode* AddNode(CheckNode* parent, const QString& key, const QString& text, const QString& tag = {});

    /// The first node of this key, nullptr when there is none.
    CheckNode* Node(const QString& key) const;

    /// All nodes in the order in which they were added.
    const QList<CheckNode*>& Nodes() const { return nodes_; }

    /// Takes all nodes away.
    void Clear();

 protected:
    void focusInEvent(QFocusEvent* event) override;

 private:
    QList<CheckNode*> nodes_;
};

}  // namespace talvora
