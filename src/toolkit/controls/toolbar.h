#pragma once

#include <QString>
#include <QStringList>
#include <QToolBar>

class QAction;
class QToolButton;

namespace talvora {

/// A bar of buttons known by their keys, with the icon of the same name above the caption. A key that the bar doesn't
/// have is RuntimeError 35601 wherever it is given.
class ToolBar : public QToolBar {
    Q_OBJECT

 public:
    /// What a press does: the button's own command, the menu, or on a split button the one beside the other.
    enum class Kind { Command, Dropdown, Split };

    explicit ToolBar(QWidget* parent = nullptr);

    /// `picture` is the icon's name where that isn't the key.
    void addButton(const QString& key, const QString& caption, Kind kind = Kind::Command, const QString& picture = {});
    /// Adds an entry to the menu of a button, which becomes a dropdown if it was a plain one.
    void addMenuEntry(const QString& buttonKey, const QString& entryKey, const QString& caption);
    void clearMenu(const QString& buttonKey);
    /// A dividing line behind the buttons so far.
    void addBar();

    /// The keys of the buttons, in order.
    QStringList keys() const { return keys_; }
    /// The caption of a button or a menu entry, as it was set.
    QString caption(const QString& key) const;
    void setCaption(const QString& key, const QString& text);
    /// A button that isn't usable is disabled and shows the grey twin of its icon.
    void setUsable(const QString& key, bool usable);

    QToolButton* button(const QString& key) const;
    QAction* entry(const QString& key) const;

 Q_SIGNALS:
    void ButtonClick(const QString& key);
    void ButtonMenuClick(const QString& key);

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    QToolButton* findButton(const QString& key) const;
    QAction* findEntry(const QString& key) const;

    QStringList keys_;
};

}  // namespace talvora
