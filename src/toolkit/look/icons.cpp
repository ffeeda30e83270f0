#include "toolkit/look/icons.h"

#include "platform/runtime_error.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QRegularExpression>
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

// The words of a drawing; empty when there is none of that name.
QByteArray source(const QString& name) {
    initPictures();
    QFile file(u":/talvora/icons/%1.svg"_s.arg(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The same drawing in light greys, darker where it was darker.
QByteArray greyTwin(const QByteArray& words) {
    constexpr int lightest = 255;
    static const QRegularExpression colour(u"#(?:[0-9a-f]{6}|[0-9a-f]{3})\\b"_s);
    const QString coloured = QString::fromUtf8(words);
    QString grey;
    qsizetype done = 0;
    for (const auto& match : colour.globalMatch(coloured)) {
        const int light = lightest - (lightest - qGray(QColor(match.captured()).rgb())) / 2;
        grey += QStringView(coloured).mid(done, match.capturedStart() - done);
        grey += QColor(light, light, light).name();
        done = match.capturedEnd();
    }
    grey += QStringView(coloured).mid(done);
    return grey.toUtf8();
}

bool isGreyTwin(const QString& name) {
    return name.endsWith(u'1') && source(name).isEmpty();
}

std::shared_ptr<QSvgRenderer> drawing(const QString& name) {
    const QByteArray words = isGreyTwin(name) ? greyTwin(source(name.chopped(1))) : source(name);
    if (words.isEmpty()) {
        throw RuntimeError(InvalidPicture, u"图片无效: %1"_s.arg(name));
    }
    return std::make_shared<QSvgRenderer>(words);
}

class DrawnIcon : public QIconEngine {
 public:
    /// A grey drawing stays as it is when disabled; others fade.
    DrawnIcon(std::shared_ptr<QSvgRenderer> drawing, bool grey) : drawing_(std::move(drawing)), grey_(grey) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        painter->save();
        painter->setOpacity(mode == QIcon::Disabled && !grey_ ? DisabledOpacity : 1.0);
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
    QIconEngine* clone() const override { return new DrawnIcon(drawing_, grey_); }

 private:
    std::shared_ptr<QSvgRenderer> drawing_;
    bool grey_;
};

}  // namespace

QIcon icon(const QString& name) {
    return QIcon(new DrawnIcon(drawing(name), isGreyTwin(name)));
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
