#include "toolkit/icons.h"

#include "platform/runtime_error.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>

#include <memory>

// A static library's resources are linked in only where they are asked for, and the macro wants the global namespace.
static void initPictures() {
    Q_INIT_RESOURCE(toolkit);
}

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int InvalidPicture = 481;
constexpr qreal DisabledOpacity = 0.4;

std::shared_ptr<QSvgRenderer> drawing(const QString& name) {
    initPictures();
    const QString path = u":/talvora/icons/%1.svg"_s.arg(name);
    if (!QFile::exists(path)) {
        throw RuntimeError(InvalidPicture, u"图片无效: %1"_s.arg(name));
    }
    return std::make_shared<QSvgRenderer>(path);
}

class DrawnIcon : public QIconEngine {
 public:
    explicit DrawnIcon(std::shared_ptr<QSvgRenderer> drawing) : drawing_(std::move(drawing)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        painter->save();
        painter->setOpacity(mode == QIcon::Disabled ? DisabledOpacity : 1.0);
        drawing_->render(painter, rect);
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap result(size);
        result.fill(Qt::transparent);
        QPainter painter(&result);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return result;
    }
    QIconEngine* clone() const override { return new DrawnIcon(drawing_); }

 private:
    std::shared_ptr<QSvgRenderer> drawing_;
};

}  // namespace

QIcon icon(const QString& name) {
    return QIcon(new DrawnIcon(drawing(name)));
}

QPixmap picture(const QString& name, int size, qreal scale) {
    const int pixels = qRound(size * scale);
    QPixmap result(pixels, pixels);
    result.fill(Qt::transparent);
    {
        QPainter painter(&result);
        drawing(name)->render(&painter);
    }
    result.setDevicePixelRatio(scale);
    return result;
}

}  // namespace talvora
