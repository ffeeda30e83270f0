#pragma once

#include <QHash>
#include <QIcon>
#include <QProxyStyle>

namespace talvora {

/// The style under the style sheet: Fusion with the program's own marks of option buttons and check boxes, and with
/// dialogs whose buttons bear words alone. A sheet that named these pictures would make Qt load every plugin for images
/// at the start of the program.
class Style : public QProxyStyle {
    Q_OBJECT

 public:
    Style();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returnData) const override;

 private:
    void drawMark(const QString& kind, const QStyleOption& option, QPainter& painter) const;

    mutable QHash<QString, QIcon> marks_;  ///< by name, those drawn so far
};

}  // namespace talvora
