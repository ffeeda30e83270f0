#include "platform/moment.h"
#include "platform/user_settings.h"
#include "toolkit/forms/form_setup.h"
#include "toolkit/forms/twips.h"
#include "workbench/frmmain.h"

#include <QDateTime>
#include <QGuiApplication>
#include <QScreen>
#include <QShortcut>
#include <QTimer>
#include <QToolButton>

#include <algorithm>
#include <limits>

// The measures of the frame, its saved place and its splitters.
namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int smallestWidth = 11000;
constexpr int smallestHeight = 7000;
constexpr int smallestTree = 1500;
constexpr int treeAfterSmallest = 3000;
constexpr int smallestList = 3000;
constexpr int splitterWidth = 40;
constexpr int listMargins = 140;  // of which the splitter is a part
constexpr int paneGap = 50;
constexpr int ghostMargin = 500;
constexpr int detailGhostMargin = 4000;
constexpr int smallestDetail = 1000;
constexpr int beyondTree = std::numeric_limits<int>::max();  // a place that stands for the middle
constexpr int grip = 100;  // what the mouse can take of a splitter, which reaches into the pane behind it
constexpr int secondMilliseconds = 1000;

QString section() {
    return u"Settings"_s;
}

void place(QWidget& control, int left, int top, int width, int height) {
    control.setGeometry(toPixels(left), toPixels(top), toPixels(width), toPixels(height));
}

/// Where a ghost bar goes, in twips, when the mouse takes it to `pixels`. Past both limits the second one counts.
int ghostPlace(int pixels, int room, int margin) {
    const int wanted = toTwips(pixels);
    return wanted < margin ? margin : std::min(wanted, toTwips(room) - margin);
}

/// Where a window opens that has no place yet: higher than wanted on a screen that would not show its lower edge.
QPoint firstPlace(QSize window) {
    constexpr int wanted = toPixels(1000);
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const QSize room = screen.size() - window - QSize(0, FrameAllowance.height());
    const QPoint last = screen.topLeft() + QPoint(room.width(), room.height());
    return {qMax(screen.x(), qMin(wanted, last.x())), qMax(screen.y(), qMin(wanted, last.y()))};
}

/// Whether enough of a window's title bar is on a screen to drag it by.
bool isWithinReach(const QRect& window) {
    constexpr QSize handle(100, 24);
    const QRect titleBar(window.topLeft(), QSize(window.width(), handle.height()));
    const auto screens = QGuiApplication::screens();
    return std::any_of(screens.begin(), screens.end(), [&](const QScreen* screen) {
        const QRect seen = titleBar & screen->availableGeometry();
        return seen.width() >= handle.width() && seen.height() == handle.height();
    });
}

}  // namespace

void frmMain::wireLayout() {
    on(ui->pnlBody, &PaneArea::Resize, &frmMain::Form_Resize);
    on(ui->imgSplitter, &SplitterBar::MouseDown, &frmMain::imgSplitter_MouseDown);
    on(ui->imgSplitter, &SplitterBar::MouseMove, &frmMain::imgSplitter_MouseMove);
    on(ui->imgSplitter, &SplitterBar::MouseUp, &frmMain::imgSplitter_MouseUp);
    on(ui->ImgVertical, &SplitterBar::MouseDown, &frmMain::ImgVertical_MouseDown);
    on(ui->ImgVertical, &SplitterBar::MouseMove, &frmMain::ImgVertical_MouseMove);
    on(ui->ImgVertical, &SplitterBar::MouseUp, &frmMain::ImgVertical_MouseUp);
    ui->imgSplitter->raise();
    ui->ImgVertical->raise();
    auto* nextPane = new QShortcut(QKeySequence(Qt::Key_F6), window());
    on(nextPane, &QShortcut::activated, &frmMain::moveFocusOn);

    ui->sbStatusBar->addWidget(ui->pnlUser, 1);
    for (QLabel* panel : {ui->pnlState, ui->pnlDate, ui->pnlTime}) {
        ui->sbStatusBar->addPermanentWidget(panel);
    }
    auto* clock = new QTimer(window());
    clock->setInterval(secondMilliseconds);
    on(clock, &QTimer::timeout, &frmMain::showTime);
    clock->start();
    showTime();
}

void frmMain::showTime() {
    const QDateTime now = QDateTime::currentDateTime();
    ui->pnlDate->setText(dateText(now.date()));
    ui->pnlTime->setText(now.toString(u"HH:mm"_s));
}

/// The place of the first run holds as well where the one that was kept is on no screen any more. A window that with
/// its frame has become too large for the screen fills it.
void frmMain::restorePlace() {
    constexpr int firstSize = 6500;
    const auto pixels = [](const QString& key, int preset) {
        return toPixels(GetSettingNumber(section(), key, preset));
    };
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const QSize largest = screen.size() - FrameAllowance;
    window()->setMinimumSize(QSize(toPixels(smallestWidth), toPixels(smallestHeight)).boundedTo(largest));
    const QSize size(pixels(u"MainWidth"_s, firstSize), pixels(u"MainHeight"_s, firstSize));
    window()->resize(size.boundedTo(largest));
    const QPoint first = firstPlace(window()->size());
    const QPoint kept(pixels(u"MainLeft"_s, toTwips(first.x())), pixels(u"MainTop"_s, toTwips(first.y())));
    if (size.boundedTo(largest) != size) {
        window()->move(screen.topLeft());
    } else {
        window()->move(isWithinReach(QRect(kept, window()->size())) ? kept : first);
    }
}

void frmMain::savePlace() {
    const auto save = [](const QString& key, int pixels) {
        SaveSetting(section(), key, QString::number(toTwips(pixels)));
    };
    save(u"MainLeft"_s, window()->x());
    save(u"MainTop"_s, window()->y());
    save(u"MainWidth"_s, window()->width());
    save(u"MainHeight"_s, window()->height());
}

void frmMain::Form_Resize() {
    SizeControls(toTwips(ui->imgSplitter->x()));
}

int frmMain::treeBottom() const {
    return toTwips(ui->pnlBody->height());
}

void frmMain::SizeControls(int x) {
    const int width = toTwips(window()->width());
    const int top = toTwips(ui->picTitles->height());
    // Not to the limit itself: a tree dragged too narrow springs back to a comfortable width, which is meant.
    if (x < smallestTree) {
        x = treeAfterSmallest;
    }
    x = std::min(x, width - smallestList);
    const int left = x + splitterWidth;
    const int listWidth = width - x - listMargins;
    const int treeHeight = treeBottom() - top;
    ui->picTitles->resize(ui->pnlBody->width(), ui->picTitles->height());
    place(*ui->StsBar0, 0, 0, x, top);
    place(*ui->StsBar1, left, 0, listWidth, top);
    place(*ui->tvTreeView, 0, top, x, treeHeight);
    place(*ui->imgSplitter, x, top, grip, treeHeight);
    if (!ui->fgDetail->isVisibleTo(ui->pnlBody)) {
        place(*ui->fg, left, top, listWidth, treeHeight - paneGap);
        return;
    }
    place(*ui->fg, left, top, listWidth, toTwips(ui->fg->height()));
    const int detailTop = toTwips(ui->fgDetail->y());
    place(*ui->fgDetail, left, detailTop, listWidth, treeBottom() - paneGap - detailTop);
    place(*ui->ImgVertical, left, toTwips(ui->ImgVertical->y()), listWidth, grip);
    if (treeBottom() - detailTop < smallestDetail) {
        // A lower window would leave the pane below its edge.
        PlaceDetailGrid(beyondTree, *ui->fgDetail);
    }
}

void frmMain::PlaceDetailGrid(int y, FlexGrid& grid) {
    const int top = toTwips(ui->tvTreeView->y());
    const int treeHeight = toTwips(ui->tvTreeView->height());
    const int left = toTwips(ui->fg->x());
    const int width = toTwips(ui->fg->width());
    if (y > treeHeight) {
        y = treeHeight / 2 + top;
    }
    const int gridTop = y + paneGap;
    const int height = top + treeHeight - gridTop;
    place(grid, left, gridTop, width, height);
    grid.show();
    place(*ui->fg, left, top, width, treeHeight - height - paneGap);
    place(*ui->ImgVertical, left, gridTop - paneGap, width, grip);
    ui->ImgVertical->show();
    place(*ui->imgSplitter, toTwips(ui->imgSplitter->x()), top, grip, treeHeight);
}

void frmMain::CloseDetailGrid() {
    ui->fgDetail->hide();
    ui->ImgVertical->hide();
    ui->fg->resize(ui->fg->width(), ui->tvTreeView->height() - toPixels(paneGap));
}

void frmMain::imgSplitter_MouseDown() {
    place(*ui->picSplitter, toTwips(ui->imgSplitter->x()), toTwips(ui->imgSplitter->y()), splitterWidth,
          toTwips(ui->imgSplitter->height()));
    ui->picSplitter->show();
    ui->picSplitter->raise();
    splitterMoving_ = true;
}

void frmMain::imgSplitter_MouseMove(QPoint position) {
    if (splitterMoving_) {
        const int left = ghostPlace(ui->imgSplitter->x() + position.x(), window()->width(), ghostMargin);
        ui->picSplitter->move(toPixels(left), ui->picSplitter->y());
    }
}

void frmMain::imgSplitter_MouseUp() {
    SizeControls(toTwips(ui->picSplitter->x()));
    ui->picSplitter->hide();
    splitterMoving_ = false;
}

void frmMain::ImgVertical_MouseDown() {
    place(*ui->PicVertical, toTwips(ui->ImgVertical->x()), toTwips(ui->ImgVertical->y()),
          toTwips(ui->ImgVertical->width()), paneGap);
    ui->PicVertical->show();
    ui->PicVertical->raise();
    verticalMoving_ = true;
}

void frmMain::ImgVertical_MouseMove(QPoint position) {
    if (verticalMoving_) {
        const int top = ghostPlace(ui->ImgVertical->y() + position.y(), window()->height(), detailGhostMargin);
        ui->PicVertical->move(ui->PicVertical->x(), toPixels(top));
    }
}

void frmMain::ImgVertical_MouseUp() {
    PlaceDetailGrid(toTwips(ui->PicVertical->y()) + paneGap, *ui->fgDetail);
    ui->PicVertical->hide();
    verticalMoving_ = false;
}

/// Takes the focus from the tree to the list, the detail pane, the toolbar and back.
void frmMain::moveFocusOn() {
    std::vector<QWidget*> stops{ui->tvTreeView, ui->fg};
    if (ui->fgDetail->isVisible()) {
        stops.push_back(ui->fgDetail);
    }
    const auto buttons = window()->findChildren<QToolButton*>();
    const auto usable = std::find_if(buttons.begin(), buttons.end(), [](const QToolButton* button) {
        return button->isVisible() && button->isEnabled() && button->focusPolicy() != Qt::NoFocus;
    });
    if (usable != buttons.end()) {
        stops.push_back(*usable);
    }
    const auto present = std::find(stops.begin(), stops.end(), window()->focusWidget());
    QWidget* next = present == stops.end() || present + 1 == stops.end() ? stops.front() : *(present + 1);
    next->setFocus(Qt::ShortcutFocusReason);
}

}  // namespace talvora
