#include "spreadsheet/page_view.h"

#include "toolkit/look/theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace talvora {

namespace {

constexpr int Gap = 16;
constexpr int LineStep = 40;
constexpr double LeastFactor = 0.1;

}  // namespace

PageView::PageView(QWidget* parent) : QAbstractScrollArea(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    verticalScrollBar()->setSingleStep(LineStep);
    horizontalScrollBar()->setSingleStep(LineStep);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &PageView::scrolled);
}

void PageView::setSheet(std::shared_ptr<const SheetPrinter> sheet) {
    sheet_ = std::move(sheet);
    place();
}

int PageView::pageCount() const {
    return sheet_ ? static_cast<int>(sheet_->pages().size()) : 0;
}

int PageView::currentPage() const {
    return current_;
}

void PageView::showPage(int page) {
    verticalScrollBar()->setValue(std::clamp(page, 0, pageCount() - 1) * pageStep());
}

void PageView::setZoom(double zoom) {
    zoom_ = zoom;
    place();
}

double PageView::factor() const {
    if (zoom_ > 0) {
        return zoom_;
    }
    const QSizeF page = sheet_->pageLayout().fullRect(QPageLayout::Millimeter).size() * PixelsForMillimetre;
    const double across = (viewport()->width() - 2 * Gap) / page.width();
    const double down = (viewport()->height() - 2 * Gap) / page.height();
    return std::max(LeastFactor, zoom_ == FitPage ? std::min(across, down) : across);
}

QSize PageView::pageSize() const {
    return (sheet_->pageLayout().fullRect(QPageLayout::Millimeter).size() * PixelsForMillimetre * factor()).toSize();
}

int PageView::pageStep() const {
    return pageSize().height() + Gap;
}

QRect PageView::placeOf(int page) const {
    const QSize size = pageSize();
    const int left = std::max(Gap, (viewport()->width() - size.width()) / 2) - horizontalScrollBar()->value();
    return {QPoint(left, Gap + page * pageStep() - verticalScrollBar()->value()), size};
}

void PageView::place() {
    if (!sheet_) {
        return;
    }
    const int page = current_;
    const QSize size = pageSize();
    horizontalScrollBar()->setRange(0, std::max(0, size.width() + 2 * Gap - viewport()->width()));
    horizontalScrollBar()->setPageStep(viewport()->width());
    verticalScrollBar()->setRange(0, std::max(0, pageCount() * pageStep() + Gap - viewport()->height()));
    verticalScrollBar()->setPageStep(std::min(pageStep(), viewport()->height()));
    showPage(page);
    viewport()->update();
}

void PageView::scrolled() {
    // The last page counts as reached when the view can't go further.
    const QScrollBar& bar = *verticalScrollBar();
    const int page = bar.value() == bar.maximum() ? pageCount() - 1 : (bar.value() + pageStep() / 2) / pageStep();
    viewport()->update();
    if (page != current_) {
        current_ = page;
        Q_EMIT currentPageChanged(page);
    }
}

void PageView::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Home:
            showPage(0);
            return;
        case Qt::Key_End:
            showPage(pageCount() - 1);
            return;
        default:
            QAbstractScrollArea::keyPressEvent(event);
    }
}

void PageView::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), theme::Line);
    if (!sheet_) {
        return;
    }
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    const int first = std::max(0, (verticalScrollBar()->value() - Gap) / pageStep());
    for (int page = first; page < pageCount() && placeOf(page).top() < viewport()->height(); ++page) {
        const QRect place = placeOf(page);
        painter.fillRect(place.translated(2, 2), theme::TextQuiet);
        painter.fillRect(place, Qt::white);
        painter.save();
        painter.setClipRect(place);
        sheet_->paint(painter, page, place);
        painter.restore();
    }
}

void PageView::resizeEvent(QResizeEvent*) {
    place();
}

}  // namespace talvora
