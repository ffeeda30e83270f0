#pragma once

#include "toolkit/grid/flexgrid_types.h"

#include <QColor>
#include <QHash>
#include <QIcon>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace talvora {

/// How a cell differs from the others of its column.
struct GridFormat {
    QColor back;
    QColor fore;
    QIcon picture;
    std::optional<GridAlign> align;
    bool bold = false;
};

bool operator==(const GridFormat& one, const GridFormat& other);
size_t qHash(const GridFormat& format, size_t seed = 0);

/// The formats of a grid, each kept once: a cell holds the number of its format, and 0 is the plain one.
class GridFormats {
 public:
    const GridFormat& at(quint32 id) const { return formats_[id]; }
    quint32 idOf(const GridFormat& format);

 private:
    std::vector<GridFormat> formats_{GridFormat()};
    QHash<GridFormat, quint32> ids_{{GridFormat(), 0}};
};

/// A row of a grid. Its cells stay in the one text that they came in until one of them is written.
class GridRow {
 public:
    GridRow() = default;
    explicit GridRow(const QString& cells) : packed_(cells) {}

    /// The text of a cell, empty where the row has none.
    QString text(int col) const;
    void setText(int col, const QString& text);
    /// Drops the cells from number `count` on.
    void truncate(int count);

    quint32 format(int col) const;
    void setFormat(int col, quint32 id);

    QString data;
    qint16 level = 0;
    bool node = false;
    bool collapsed = false;
    bool merges = false;

 private:
    void unpack();

    QString packed_;
    QStringList cells_;
    std::vector<quint32> formats_;
};

}  // namespace talvora
