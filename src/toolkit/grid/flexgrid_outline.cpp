#include "toolkit/grid/flexgrid_outline.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace talvora {

namespace {

constexpr std::size_t MaxDepth = 31;

struct OpenNode {
    int level;
    bool hides;
};

// The tree's lines are told from the far end: a branch goes on if another row of its depth comes before a lesser one.
void joinBranches(std::vector<GridBranch>& branches, const std::vector<int>& order) {
    quint32 open = 0;
    for (auto row = order.rbegin(); row != order.rend(); ++row) {
        GridBranch& branch = branches[static_cast<std::size_t>(*row)];
        const quint32 own = quint32{1} << branch.depth;
        branch.lines = open & (own | (own - 1));
        open = branch.lines | own;
    }
}

}  // namespace

GridOutline GridOutline::of(const std::vector<GridRow>& rows, int first) {
    GridOutline outline;
    std::vector<int> order(rows.size() - static_cast<std::size_t>(first));
    std::iota(order.begin(), order.end(), first);
    if (std::none_of(rows.begin() + first, rows.end(), [](const GridRow& row) { return row.node; })) {
        outline.visible = std::move(order);
        return outline;
    }
    outline.branches.resize(rows.size());
    std::vector<OpenNode> above;
    GridBranch* previous = nullptr;
    for (const int number : order) {
        const GridRow& row = rows[static_cast<std::size_t>(number)];
        while (row.node && !above.empty() && above.back().level >= row.level) {
            above.pop_back();
        }
        GridBranch& branch = outline.branches[static_cast<std::size_t>(number)];
        branch.depth = static_cast<quint8>(std::min(above.size(), MaxDepth));
        if (previous) {
            previous->foldable = branch.depth > previous->depth;
        }
        previous = &branch;
        const bool hidden = !above.empty() && above.back().hides;
        if (!hidden) {
            outline.visible.push_back(number);
        }
        if (row.node) {
            above.push_back({row.level, hidden || row.collapsed});
        }
    }
    joinBranches(outline.branches, order);
    std::sort(outline.visible.begin(), outline.visible.end());
    return outline;
}

std::vector<int> ancestorsOf(const std::vector<GridRow>& rows, int first, int row) {
    std::vector<int> found;
    const GridRow& self = rows[static_cast<std::size_t>(row)];
    int limit = self.node ? self.level : std::numeric_limits<int>::max();
    for (int at = row - 1; at >= first; --at) {
        const GridRow& candidate = rows[static_cast<std::size_t>(at)];
        if (candidate.node && candidate.level < limit) {
            found.push_back(at);
            limit = candidate.level;
        }
    }
    return found;
}

}  // namespace talvora
