#pragma once

#include <QItemSelectionModel>
#include <QString>
#include <QTreeWidget>

#include <vector>

namespace talvora {

/// The tree of headings and modules. A node has a key, and a tag that says what it opens; a heading's is empty.
class ModuleTree : public QTreeWidget {
    Q_OBJECT

 public:
    explicit ModuleTree(QWidget* parent = nullptr);

    void Clear();
    /// Adds a node under the node of the key `parent`, or at the top level for an empty one. RuntimeError 35601 when
    /// there is no such node.
    void AddNode(const QString& parent, const QString& key, const QString& text, const QString& tag);

    int NodeCount() const { return static_cast<int>(nodes_.size()); }
    /// A node by its number, counted from 1 in the order in which they were added. RuntimeError 35600 outside.
    QTreeWidgetItem& Node(int number) { return *node(number); }
    const QTreeWidgetItem& Node(int number) const { return *node(number); }
    QString Key(int number) const;
    QString Tag(int number) const;
    static QString Tag(const QTreeWidgetItem& node);

    /// Marks a node without raising NodeClick.
    void SelectNode(int number);

 Q_SIGNALS:
    /// The user clicked a node or went to it by a key.
    void NodeClick(QTreeWidgetItem* node);

 protected:
    void keyPressEvent(QKeyEvent* event) override;
    /// A press beside the nodes leaves the mark on the module shown.
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event = nullptr) const override;

 private:
    QTreeWidgetItem* node(int number) const;

    std::vector<QTreeWidgetItem*> nodes_;
};

}  // namespace talvora
