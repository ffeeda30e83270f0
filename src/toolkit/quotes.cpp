#include "toolkit/quotes.h"

#include "toolkit/form.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

#include <algorithm>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

QString textOf(const QWidget* control) {
    if (const auto* line = qobject_cast<const QLineEdit*>(control)) {
        return line->text();
    }
    if (const auto* text = qobject_cast<const QPlainTextEdit*>(control)) {
        return text->toPlainText();
    }
    if (const auto* richText = qobject_cast<const QTextEdit*>(control)) {
        return richText->toPlainText();
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
