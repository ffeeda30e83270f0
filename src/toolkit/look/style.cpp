#include "toolkit/look/style.h"

#include "toolkit/look/icons.h"

#include <QStyleOption>

namespace talvora {

using namespace Qt::StringLiterals;

Style::Style() : QProxyStyle(u"Fusion"_s) {}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
    switch (element) {
        case PE_IndicatorRadioButton:
            drawMark(u"radio"_s, *option, *painter);
            break;
        case PE_FrameFocusRect:
            // The style sheet gives what has the focus its border; a second box within it would be one too many.
            break;
        case PE_IndicatorCheckBox:
        case PE_IndicatorItemViewItemCheck:
            drawMark(u"check"_s, *option, *painter);
            break;
        default:
            QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                     QStyleHintReturn* returnData) const {
    return hint == SH_DialogButtonBox_ButtonsHaveIcons ? 0 : QProxyStyle::styleHint(hint, option, widget, returnData);
}

void Style::drawMark(const QString& kind, const QStyleOption& option, QPainter& painter) const {
    const bool isOn = option.state.testFlag(State_On);
    const QString name = kind + (option.state.testFlag(State_Enabled) ? (isOn ? "-on"_L1 : "-off"_L1)
                                                                      : (isOn ? "-dim-on"_L1 : "-dim"_L1));
    QIcon& mark = marks_[name];
    if (mark.isNull()) {
        mark = icon(name);
    }
    mark.paint(&painter, option.rect);
}

}  // namespace talvora
