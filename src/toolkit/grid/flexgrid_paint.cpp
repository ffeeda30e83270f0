#include "toolkit/grid/flexgrid_paint.h"

#include "toolkit/look/theme.h"

#include <QTextLayout>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace talvora::grid {

namespace {

constexpr qreal SelectionStrength = 0.13;

qreal scaleOf(const QPainter& painter) {
    return painter.device()->devicePixelRatioF();
}

// Breaks as Chinese does: no line begins with a comma or a full stop.
qreal breakLines(QTextLayout& layout, Qt::Alignment align, int width) {
    QTextOption option(align & Qt::AlignHorizontal_Mask);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    qreal height = 0;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition(QPointF(0, height));
        height += line.height();
    }
    layout.endLayout();
    return height;
}

QString withLineSeparators(QString text) {
    return text.replace("\r\n"_L1, "\n"_L1).replace(u'\n', QChar::LineSeparator);
}

}  // namespace

void fillCrisp(QPainter& painter, const QRectF& area, const QColor& color) {
    // By the device's own coordinates: at 150 % a grid and its rows may begin between two pixels, and a row's ground
    // would then cover the line of the row above.
    const QTransform toDevice = painter.deviceTransform();
    const QRectF onDevice = toDevice.mapRect(area);
    const qreal left = std::round(onDevice.left());
    const qreal top = std::round(onDevice.top());
    const qreal width = std::max(1.0, std::round(onDevice.right()) - left);
    const qreal height = std::max(1.0, std::round(onDevice.bottom()) - top);
    painter.fillRect(toDevice.inverted().mapRect(QRectF(left, top, width, height)), color);
}

int rowHeight(const QFontMetrics& metrics) {
    return std::max(theme::RowHeight, metrics.lineSpacing() + 2 * PaddingY);
}

QColor selected(const QColor& ground) {
    const auto mix = [](int under, int over) {
        return static_cast<int>(std::lround(under * (1 - SelectionStrength) + over * SelectionStrength));
    };
    const QColor& accent = theme::Accent;
    return {mix(ground.red(), accent.red()), mix(ground.green(), accent.green()), mix(ground.blue(), accent.blue())};
}

void lineBelow(QPainter& painter, const QRect& cell, const QColor& color) {
    const qreal thin = 1 / scaleOf(painter);
    fillCrisp(painter, QRectF(cell.left(), cell.top() + cell.height() - thin, cell.width(), thin), color);
}

void lineRightOf(QPainter& painter, const QRect& cell, const QColor& color) {
    const qreal thin = 1 / scaleOf(painter);
    fillCrisp(painter, QRectF(cell.left() + cell.width() - thin, cell.top(), thin, cell.height()), color);
}

void lineAcross(QPainter& painter, qreal x1, qreal x2, qreal y, const QColor& color) {
    fillCrisp(painter, QRectF(x1, y, x2 - x1, 1 / scaleOf(painter)), color);
}

void lineDown(QPainter& painter, qreal x, qreal y1, qreal y2, const QColor& color) {
    fillCrisp(painter, QRectF(x, y1, 1 / scaleOf(painter), y2 - y1), color);
}

int brokenHeight(const QString& text, const QFont& font, int width) {
    QTextLayout layout(withLineSeparators(text), font);
    return static_cast<int>(std::ceil(breakLines(layout, Qt::AlignLeft, width)));
}

void drawBroken(QPainter& painter, const QRect& area, Qt::Alignment align, const QString& text) {
    QTextLayout layout(withLineSeparators(text), painter.font());
    const qreal spare = area.height() - breakLines(layout, align, area.width());
    qreal top = area.top();
    if (!(align & Qt::AlignTop)) {
        top += align & Qt::AlignBottom ? spare : spare / 2;
    }
    layout.draw(&painter, QPointF(area.left(), std::floor(top)));
}

void expander(QPainter& painter, const QPointF& centre, bool collapsed) {
    // Counted in device pixels and odd, so that the sign has a middle line.
    const qreal scale = scaleOf(painter);
    const qreal size = std::floor(ExpanderSize * scale / 2) * 2 + 1;
    const qreal stroke = std::max(1.0, std::floor(scale));
    const qreal sign = std::floor(size / 4);
    const qreal left = std::round(centre.x() * scale) - std::floor(size / 2);
    const qreal top = std::round(centre.y() * scale) - std::floor(size / 2);
    const auto fill = [&](qreal x, qreal y, qreal width, qreal height, const QColor& color) {
        painter.fillRect(QRectF((left + x) / scale, (top + y) / scale, width / scale, height / scale), color);
    };
    fill(0, 0, size, size, theme::TextQuiet);
    fill(stroke, stroke, size - 2 * stroke, size - 2 * stroke, theme::Surface);
    const qreal middle = std::floor((size - stroke) / 2);
    fill(sign, middle, size - 2 * sign, stroke, theme::Text);
    if (collapsed) {
        fill(middle, sign, stroke, size - 2 * sign, theme::Text);
    }
}

}  // namespace talvora::grid
