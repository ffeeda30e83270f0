#include "workbench/toolbar_buttons.h"

#include "platform/text.h"
#include "toolkit/controls/toolbar.h"

// The blanks in the captions are part of them.
namespace talvora {

using namespace Qt::StringLiterals;

namespace {

struct Entry {
    QString key;
    QString caption;
};

void addDropdown(ToolBar& toolbar, const Entry& button, std::initializer_list<Entry> entries) {
    toolbar.addButton(button.key, button.caption, ToolBar::Kind::Dropdown);
    for (const Entry& entry : entries) {
        toolbar.addMenuEntry(button.key, entry.key, entry.caption);
    }
}

QStringList typeLevels() {
    return {u"显示主类"_s, u"显示子类"_s, u"显示试卷"_s};
}

QStringList positionLevels() {
    constexpr int levels = 10;
    QStringList captions;
    for (int level = 1; level <= levels; ++level) {
        captions += u"显示层级 %1"_s.arg(level);
    }
    return captions;
}

/// `key` and the number of the level are an entry's key.
void addLevels(ToolBar& toolbar, const QString& key, const QStringList& captions) {
    toolbar.addButton(u"level"_s, u"显示层级"_s, ToolBar::Kind::Dropdown);
    for (int level = 1; level <= captions.size(); ++level) {
        toolbar.addMenuEntry(u"level"_s, key + QString::number(level), captions[level - 1]);
    }
}

void markLevel(ToolBar& toolbar, const QString& key, const QStringList& captions, int marked) {
    for (int level = 1; level <= captions.size(); ++level) {
        const QString mark = level == marked ? u"  √"_s : QString();
        toolbar.setCaption(key + QString::number(level), captions[level - 1] + mark);
    }
}

}  // namespace

void addTestingButtons(ToolBar& toolbar) {
    toolbar.addButton(u"add"_s, u"新测评"_s);
    toolbar.addButton(u"del"_s, u"删除"_s);
    toolbar.addBar();
    toolbar.addButton(u"detail"_s, answerCaptions.show.toString());
    toolbar.addButton(u"find"_s, u"查找"_s, ToolBar::Kind::Split);
    toolbar.addBar();
    addDropdown(toolbar, {u"export"_s, u"导出Excel"_s},
                {{u"exportlist"_s, u"按列表导出所有记录"_s},
                 {u"exportselect"_s, u"仅导选择记录的测评明细"_s},
                 {u"exportall"_s, u"导出所有记录的测评明细"_s}});
    addDropdown(toolbar, {u"print"_s, u"打印"_s},
                {{u"printlist"_s, u"按列表打印所有记录"_s},
                 {u"printselect"_s, u"仅打印选择记录的测评明细"_s},
                 {u"printall"_s, u"打印所有记录的测评明细"_s}});
    toolbar.addBar();
    toolbar.addButton(u"exit"_s, u"退出"_s);
}

void addTestingTypeButtons(ToolBar& toolbar) {
    toolbar.addButton(u"type1"_s, u" 增加主类 "_s);
    toolbar.addButton(u"type2"_s, u" 增加子类 "_s);
    toolbar.addButton(u"type3"_s, u" 增加试卷 "_s);
    toolbar.addBar();
    addLevels(toolbar, u"level"_s, typeLevels());
    toolbar.addButton(u"edit"_s, u"修改"_s);
    toolbar.addButton(u"del"_s, u"删除"_s);
    toolbar.addButton(u"detail"_s, questionCaptions.show.toString());
    toolbar.addBar();
    addDropdown(toolbar, {u"export"_s, u"导出Excel"_s},
                {{u"exportlist"_s, u"按列表"_s},
                 {u"exportselect"_s, u"仅导选择试卷明细"_s},
                 {u"exportall"_s, u"导出所有试卷明细"_s}});
    addDropdown(toolbar, {u"print"_s, u"打印"_s},
                {{u"printlist"_s, u"按列表"_s},
                 {u"printselect"_s, u"仅打印选择试卷明细"_s},
                 {u"printall"_s, u"打印所有试卷明细"_s}});
    toolbar.addBar();
    toolbar.addButton(u"exit"_s, u"    退出    "_s);
}

void addPositionButtons(ToolBar& toolbar) {
    toolbar.addButton(u"type1"_s, u" 增加同级 "_s);
    toolbar.addButton(u"type2"_s, u"增加子级"_s);
    toolbar.addBar();
    toolbar.addButton(u"edit"_s, u"修改"_s);
    toolbar.addButton(u"del"_s, u"删除"_s);
    addLevels(toolbar, u"L"_s, positionLevels());
    toolbar.addBar();
    toolbar.addButton(u"export"_s, u"导出"_s);
    toolbar.addButton(u"print"_s, u"打印"_s);
    toolbar.addBar();
    toolbar.addButton(u"exit"_s, u"退出"_s);
}

void addRecordButtons(ToolBar& toolbar) {
    toolbar.addButton(u"add"_s, u"  增加  "_s);
    toolbar.addButton(u"edit"_s, u"修改"_s);
    toolbar.addButton(u"del"_s, u"删除"_s);
    toolbar.addBar();
    toolbar.addButton(u"export"_s, u"导出Excel"_s);
    toolbar.addButton(u"print"_s, u"打印"_s);
    toolbar.addBar();
    toolbar.addButton(u"exit"_s, u"退出"_s);
}

void markTypeLevel(ToolBar& toolbar, int level) {
    markLevel(toolbar, u"level"_s, typeLevels(), level);
}

void markPositionLevel(ToolBar& toolbar, int level) {
    markLevel(toolbar, u"L"_s, positionLevels(), level);
}

void offerDetail(ToolBar& toolbar, const DetailCaptions& captions) {
    const QString key = u"detail"_s;
    if (trimBlanks(toolbar.caption(key)) == captions.hide.trimmed()) {
        toolbar.setCaption(key, captions.showAnew.toString());
    }
}

}  // namespace talvora
