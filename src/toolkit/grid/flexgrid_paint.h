#pragma once

#include <QColor>
#include <QFontMetrics>
#include <QPainter>
#include <QRect>

namespace talvora::grid {

inline constexpr int PaddingX = 8;
inline constexpr int PaddingY = 6;
inline constexpr QColor QuietLine{0xae, 0xb6, 0xc2};  ///< the tree's lines, and the edge of columns that stay

/// The least height of a row in a font, in device-independent pixels.
int rowHeight(const QFontMetrics& metrics);

/// `ground` as it looks under a selection.
QColor selected(const QColor& ground);

/// Fills a rectangle with its edges on whole device pixels, at least one of them wide, so that neighbours neither
/// overlap nor leave a gap.
void fillCrisp(QPainter& painter, const QRectF& area, const QColor& color);

/// Lines as wide as the display's finest crisp line, on whole device pixels at every scale.
void lineBelow(QPainter& painter, const QRect& cell, const QColor& color);
void lineRightOf(QPainter& painter, const QRect& cell, const QColor& color);
void lineAcross(QPainter& painter, qreal x1, qreal x2, qreal y, const QColor& color);
void lineDown(QPainter& painter, qreal x, qreal y1, qreal y2, const QColor& color);

/// The height of a text broken into lines of `width`, and its drawing. A word longer than a line is broken within.
int brokenHeight(const QString& text, const QFont& font, int width);
void drawBroken(QPainter& painter, const QRect& area, Qt::Alignment align, const QString& text);

/// The box that folds and opens an outline node: a minus in it when open, a plus when folded.
void expander(QPainter& painter, const QPointF& centre, bool collapsed);
inline constexpr int ExpanderSize = 11;

}  // namespace talvora::grid
