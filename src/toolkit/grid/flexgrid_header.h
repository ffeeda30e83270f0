#pragma once

#include "toolkit/grid/flexgrid_merge.h"

#include <QHeaderView>

namespace talvora {

/// The header of a FlexGrid: its fixed rows, one below the other, equal titles merged. Columns that stay in view are
/// drawn over the scrolled ones.
class GridHeader : public QHeaderView {
    Q_OBJECT

 public:
    GridHeader(const GridModel& model, const GridMerging& merging, QWidget* parent);

    /// Columns at the left that don't scroll, and the width they take.
    void setStaying(int columns, int width);

 protected:
    void paintEvent(QPaintEvent* event) override;
    void paintSection(QPainter* painter, const QRect& rect, int col) const override;
    QSize sectionSizeFromContents(int col) const override;
    bool viewportEvent(QEvent* event) override;

 private:
    void paintTitle(QPainter* painter, const QRect& section, const GridRange& cell) const;
    QRect placeOf(const GridRange& cell, const QRect& section) const;

    const GridModel& model_;
    const GridMerging& merging_;
    int stayingColumns_ = 0;
    int stayingWidth_ = 0;
    bool overStaying_ = false;
};

}  // namespace talvora
