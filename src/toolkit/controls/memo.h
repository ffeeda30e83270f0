#pragma once

#include <QPlainTextEdit>

namespace talvora {

/// A text field of several lines with a length limit. Enter moves on as in any field; Shift or Ctrl with Enter breaks
/// the line.
class Memo : public QPlainTextEdit {
    Q_OBJECT
    Q_PROPERTY(int maxLength READ maxLength WRITE setMaxLength)

 public:
    explicit Memo(QWidget* parent = nullptr);

    /// The characters that the field takes, a line break counting as one; 0 for any number. What is typed or pasted
    /// beyond them is left out, and so is the end of a longer text that is set.
    int maxLength() const { return maxLength_; }
    void setMaxLength(int characters) { maxLength_ = characters; }

    QString text() const { return toPlainText(); }
    void setText(const QString& text);

 protected:
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void cutSurplus();

    int maxLength_ = 0;
    int changedUpTo_ = 0;  // where the last insertion ends
};

}  // namespace talvora
