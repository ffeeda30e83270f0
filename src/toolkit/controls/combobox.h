#pragma once

#include <QComboBox>
#include <QString>

namespace talvora {

/// A drop-down list whose selection raises Click, the same whether a user or a statement makes it. List only, or with
/// free typing when `editable` is set in the .ui file. An item carries a whole number. Nothing is selected until
/// something is.
class ComboBox : public QComboBox {
    Q_OBJECT

 public:
    explicit ComboBox(QWidget* parent = nullptr);

    /// Appends an item with its number. The selection and what was typed stay as they are.
    void AddItem(const QString& text, qint32 number = 0);

    /// Takes all items away, the selection and the text with them. No Click.
    void Clear();

    int ListCount() const { return count(); }

    /// The position of the selected item, -1 when none is or when the text was typed and is another than the item's.
    int ListIndex() const;

    /// Selects an item and raises Click, also when it is the one selected; -1 selects nothing, with no Click.
    /// RuntimeError 380 for any other position.
    void setListIndex(int index);

    /// The text of an item. RuntimeError 381 when there is no such item; the same for ItemData.
    QString List(int index) const;
    qint32 ItemData(int index) const;
    /// The number of the selected item. RuntimeError 381 when nothing is selected.
    qint32 ItemData() const { return ItemData(ListIndex()); }

    QString text() const { return currentText(); }

    /// Free typing: takes the text and selects nothing. List only: selects the first item of this text, with Click;
    /// an empty text selects nothing, any other is refused with RuntimeError 383.
    void setText(const QString& text);

 Q_SIGNALS:
    void Click();

 protected:
    bool event(QEvent* event) override;
};

}  // namespace talvora
