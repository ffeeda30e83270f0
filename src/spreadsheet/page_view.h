#pragma once

#include "spreadsheet/sheet_printer.h"

#include <QAbstractScrollArea>

#include <memory>

namespace talvora {

/// The pages of a sheet, one below the other. Only those in sight are painted, so thousands open at once.
class PageView : public QAbstractScrollArea {
    Q_OBJECT

 public:
    /// Zooms other than a factor: to the width of the view, or to a whole page.
    static constexpr double FitWidth = 0;
    static constexpr double FitPage = -1;

    explicit PageView(QWidget* parent = nullptr);

    void setSheet(std::shared_ptr<const SheetPrinter> sheet);
    int pageCount() const;
    /// The page that takes the upper part of the view, counted from 0.
    int currentPage() const;
    void showPage(int page);
    /// 1 is life size; FitWidth and FitPage follow the view's size. The page in view stays.
    void setZoom(double zoom);

 Q_SIGNALS:
    void currentPageChanged(int page);

 protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

 private:
    double factor() const;
    QSize pageSize() const;
    int pageStep() const;
    QRect placeOf(int page) const;
    void place();
    void scrolled();

    std::shared_ptr<const SheetPrinter> sheet_;
    double zoom_ = FitPage;
    int current_ = 0;
};

}  // namespace talvora
