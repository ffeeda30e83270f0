#include "toolkit/look/theme.h"

#include "toolkit/look/style.h"

#include <QApplication>
#include <QFile>
#include <QFontDatabase>
#include <QHash>
#include <QPalette>
#include <QStyle>
#include <QWidget>

#include <algorithm>
#include <utility>

// A static library's resources are linked in only where they are asked for, and the macro wants the global namespace.
static void initStyleSheet() {
    Q_INIT_RESOURCE(toolkit);
}

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

#ifdef Q_OS_WIN
constexpr qreal SmallestPoints = 9.0;
#else
constexpr qreal SmallestPoints = 10.0;
#endif
constexpr qreal LargestPoints = 10.5;
constexpr QColor Disabled{0x8b, 0x94, 0xa1};

QPalette palette() {
    QPalette palette;
    palette.setColor(QPalette::Window, theme::Window);
    palette.setColor(QPalette::WindowText, theme::Text);
    palette.setColor(QPalette::Base, theme::Surface);
    palette.setColor(QPalette::AlternateBase, theme::Window);
    palette.setColor(QPalette::Text, theme::Text);
    palette.setColor(QPalette::Button, theme::Surface);
    palette.setColor(QPalette::ButtonText, theme::Text);
    palette.setColor(QPalette::BrightText, theme::Surface);
    palette.setColor(QPalette::Mid, theme::Line);
    palette.setColor(QPalette::Highlight, theme::Accent);
    palette.setColor(QPalette::HighlightedText, theme::Surface);
    palette.setColor(QPalette::Link, theme::Accent);
    palette.setColor(QPalette::PlaceholderText, theme::TextQuiet);
    palette.setColor(QPalette::ToolTipBase, theme::Surface);
    palette.setColor(QPalette::ToolTipText, theme::Text);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, Disabled);
    }
    palette.setColor(QPalette::Disabled, QPalette::Base, theme::Window);
    return palette;
}

bool isNameSign(char sign) {
    return (sign >= 'a' && sign <= 'z') || sign == '-';
}

// A style sheet names the colours of theme.h by words such as @accent.
QString styleSheet(const QString& name) {
    initStyleSheet();
    QFile file(u":/talvora/%1.qss"_s.arg(name));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    const QHash<QByteArray, QColor> colors{
        {"accent", theme::Accent},
        {"accent-soft", theme::AccentSoft},
        {"disabled", Disabled},
        {"header", theme::Header},
        {"line", theme::Line},
        {"required", theme::Required},
        {"surface", theme::Surface},
        {"text", theme::Text},
        {"text-quiet", theme::TextQuiet},
        {"window", theme::Window},
    };
    QByteArrayList pieces = file.readAll().split('@');
    QByteArray sheet = pieces.takeFirst();
    for (const QByteArray& piece : std::as_const(pieces)) {
        const auto end = std::find_if_not(piece.begin(), piece.end(), isNameSign) - piece.begin();
        sheet += colors.value(piece.first(end)).name().toUtf8() + piece.sliced(end);
    }
    return QString::fromUtf8(sheet);
}

}  // namespace

QFont theme::interfaceFont() {
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    const QStringList installed = QFontDatabase::families();
    for (const QString& family : {u"Microsoft YaHei UI"_s, u"PingFang SC"_s, u"Noto Sans CJK SC"_s,
                                  u"Source Han Sans SC"_s, u"WenQuanYi Micro Hei"_s, u"Microsoft YaHei"_s}) {
        if (installed.contains(family)) {
            font.setFamilies({family});
            break;
        }
    }
#ifndef Q_OS_MACOS
    font.setPointSizeF(qBound(SmallestPoints, font.pointSizeF(), LargestPoints));
#endif
    return font;
}

void applyTheme(QApplication& application) {
    QApplication::setStyle(new Style);
    QApplication::setPalette(palette());
    QApplication::setFont(theme::interfaceFont());
    application.setStyleSheet(styleSheet(u"theme_plain"_s));
}

void completeTheme() {
    static bool isComplete = false;
    if (!std::exchange(isComplete, true)) {
        qApp->setStyleSheet(qApp->styleSheet() + styleSheet(u"theme"_s));
    }
}

void setRequired(QWidget* field, bool required) {
    field->setProperty("required", required);
    if (required && field->toolTip().isEmpty()) {
        field->setToolTip(u"淡黄背景表示必填项"_s);
    }
    field->style()->unpolish(field);
    field->style()->polish(field);
}

}  // namespace talvora
