#pragma once

#include "support/windows.h"
#include "toolkit/checktree.h"

namespace talvora::test {

/// Ticks or unticks a node by keyboard alone, unfolding what stands above it.
inline void tick(CheckTree* tree, const QString& key) {
    tree->setFocus();
    press(Qt::Key_Home);
    for (qsizetype i = 0; i < tree->Nodes().size() && tree->currentItem() != tree->Node(key); ++i) {
        press(Qt::Key_Plus);
        press(Qt::Key_Down);
    }
    press(Qt::Key_Space);
}

/// The keys of the nodes that are ticked.
inline QString ticked(const CheckTree* tree) {
    QStringList keys;
    for (const CheckNode* node : tree->Nodes()) {
        keys += node->Checked() ? QStringList(node->Key) : QStringList();
    }
    return keys.join(u' ');
}

}  // namespace talvora::test
