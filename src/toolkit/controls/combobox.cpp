#include "toolkit/controls/combobox.h"

#include "platform/runtime_error.h"

#include <QCompleter>
#include <QEvent>
#include <QLineEdit>
#include <QStyledItemDelegate>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int InvalidArrayIndex = 381;
constexpr int ReadOnlyProperty = 383;

}  // namespace

ComboBox::ComboBox(QWidget* parent) : QComboBox(parent) {
    setInsertPolicy(QComboBox::NoInsert);
    // Keeps the toolkit from selecting the first item by itself.
    setPlaceholderText(u" "_s);
    // The list in rows of the theme's height; the toolkit's own delegate ignores it.
    setItemDelegate(new QStyledItemDelegate(this));
    connect(this, &QComboBox::activated, this, &ComboBox::Click);
}

void ComboBox::AddItem(const QString& text, qint32 number) {
    addItem(text, number);
}

void ComboBox::Clear() {
    clear();
    if (isEditable()) {
        clearEditText();
    }
}

int ComboBox::ListIndex() const {
    return currentText() == itemText(currentIndex()) ? currentIndex() : -1;
}

void ComboBox::setListIndex(int index) {
    if (index < -1 || index >= count()) {
        throw RuntimeError(errors::InvalidPropertyValue);
    }
    setCurrentIndex(index);
    if (index < 0) {
        return;
    }
    if (isEditable()) {
        // The toolkit leaves a typed text standing when the index is the same as before.
        setEditText(itemText(index));
    }
    Q_EMIT Click();
}

QString ComboBox::List(int index) const {
    if (index < 0 || index >= count()) {
        throw RuntimeError(InvalidArrayIndex, u"属性数组索引无效"_s);
    }
    return itemText(index);
}

qint32 ComboBox::ItemData(int index) const {
    if (index < 0 || index >= count()) {
        throw RuntimeError(InvalidArrayIndex, u"属性数组索引无效"_s);
    }
    return itemData(index).toInt();
}

void ComboBox::setText(const QString& text) {
    if (isEditable()) {
        setCurrentIndex(-1);
        setEditText(text);
        return;
    }
    const int index = findText(text, Qt::MatchFixedString | Qt::MatchCaseSensitive);
    if (index < 0 && !text.isEmpty()) {
        throw RuntimeError(ReadOnlyProperty, u"'Text' 属性为只读"_s);
    }
    setListIndex(index);
}

bool ComboBox::event(QEvent* event) {
    if (event->type() == QEvent::Polish && isEditable()) {
        // What is typed stays as it is typed.
        setCompleter(nullptr);
    }
    return QComboBox::event(event);
}

}  // namespace talvora
