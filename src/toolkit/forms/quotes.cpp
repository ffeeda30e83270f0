#include "toolkit/forms/quotes.h"

#include "toolkit/forms/form.h"

#include <QVariant>
#include <QWidget>

#include <algorithm>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

QString textOf(const QWidget* control) {
    for (const char* name : {"text", "plainText", "currentText"}) {
        if (const QVariant text = control->property(name); text.isValid()) {
            return text.toString();
        }
    }
    return {};
}

}  // namespace

bool HasQuoteInText(const Form& form) {
    if (!form.isLoaded()) {
        return false;
    }
    const auto controls = form.window()->findChildren<QWidget*>();
    return std::any_of(controls.begin(), controls.end(), [](const QWidget* control) {
        return control->objectName().startsWith("txt"_L1) && textOf(control).contains(u'\'');
    });
}

}  // namespace talvora
