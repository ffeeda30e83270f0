#include "results/search/frmfind.h"

#include "organisation/cposition.h"
#include "platform/numbers.h"
#include "results/ctesting.h"
#include "results/search/cquery.h"
#include "toolkit/forms/prompts.h"
#include "toolkit/look/theme.h"

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int savedQueriesTab = 1;
constexpr int chosenDates = 3;  // in the list of date choices
constexpr int deleteCol = 2;
constexpr int idCol = 3;

void addUnchecked(QListWidget* list, const QString& text) {
    auto* item = new QListWidgetItem(text);
    item->setCheckState(Qt::Unchecked);
    list->addItem(item);
}

QStringList checkedTexts(const QListWidget* list) {
    QStringList texts;
    for (int i = 0; i < list->count(); ++i) {
        if (list->item(i)->checkState() == Qt::Checked) {
            texts += list->item(i)->text();
        }
    }
    return texts;
}

int countChecked(const QListWidget* list) {
    int count = 0;
    for (int i = 0; i < list->count(); ++i) {
        count += list->item(i)->checkState() == Qt::Checked ? 1 : 0;
    }
    return count;
}

void removeFirst(QListWidget* list, const QString& text) {
    for (int i = 0; i < list->count(); ++i) {
        if (list->item(i)->text() == text) {
            delete list->takeItem(i);
            return;
        }
    }
}

}  // namespace

void frmFind::wire() {
    const std::pair<QListWidget*, QLabel*> lists[] = {{ui->lstEducation, ui->lblEducationCount},
                                                      {ui->lstPosition, ui->lblPositionCount},
                                                      {ui->lstType, ui->lblTypeCount},
                                                      {ui->lstResult, ui->lblResultCount}};
    for (const auto& [list, label] : lists) {
        const auto showCount = [list = list, label = label]() {
            const int count = countChecked(list);
            label->setText(count > 0 ? u"已选 %1"_s.arg(count) : QString());
        };
        on(list, &QListWidget::itemChanged, showCount);
        on(list->model(), &QAbstractItemModel::rowsRemoved, showCount);
    }
    // The room of the button stays when it is hidden, for cmdFind to move into.
    QSizePolicy keepsRoom = ui->cmdSave->sizePolicy();
    keepsRoom.setRetainSizeWhenHidden(true);
    ui->cmdSave->setSizePolicy(keepsRoom);
    // By hand, since the .ui file's order takes the tab control together with what is in it.
    QWidget::setTabOrder(ui->cmdClose, ui->SSTab1->tabBar());
    on(ui->SSTab1, &QTabWidget::currentChanged, &frmFind::SSTab1_Click);
    on(ui->fg1, &FlexGrid::Click, &frmFind::fg1_Click);
    on(ui->cmbDate, &ComboBox::Click, &frmFind::cmbDate_Click);
    on(ui->lstType, &QListWidget::itemChanged, &frmFind::lstType_ItemCheck);
    on(ui->cmdFind, &QPushButton::clicked, &frmFind::cmdFind_Click);
    on(ui->cmdSave, &QPushButton::clicked, &frmFind::cmdSave_Click);
    on(ui->cmdClose, &QPushButton::clicked, &frmFind::Unload);
}

void frmFind::Form_Load() {
    constexpr int defaultDays = 30;
    const QDate today = QDate::currentDate();
    ui->dtpDate1->setDate(today.addDays(-defaultDays));
    ui->dtpDate2->setDate(today);
    for (const auto& choice : {u" "_s, u"0 - 最近一周"_s, u"1 - 最近一月"_s, u"2 - 定制日期"_s}) {
        ui->cmbDate->AddItem(choice);
    }
    cTestings types;
    for (const auto& type : types.GetTestingType()) {
        addUnchecked(ui->lstType, type->TypeName);
    }
    cPositions positions;
    for (const auto& position : positions.GetDistPostName()) {
        addUnchecked(ui->lstPosition, position->PostName);
    }
    ui->cmbDate->setFocus();
}

QueryCriteria frmFind::criteria() const {
    QStringList sexes;
    for (const QCheckBox* box : {ui->chkSex1, ui->chkSex2}) {
        if (box->isChecked()) {
            sexes += box->text();
        }
    }
    return {.dateChoice = ui->cmbDate->text(),
            .from = ui->dtpDate1->date(),
            .to = ui->dtpDate2->date(),
            .name = ui->txtName->text(),
            .sexes = sexes,
            .educations = checkedTexts(ui->lstEducation),
            .positions = checkedTexts(ui->lstPosition),
            .types = checkedTexts(ui->lstType),
            .results = checkedTexts(ui->lstResult)};
}

void frmFind::SSTab1_Click() {
    const bool saved = ui->SSTab1->currentIndex() == savedQueriesTab;
    for (QWidget* control : std::initializer_list<QWidget*>{ui->optAnd, ui->optOR, ui->cmdSave}) {
        control->setVisible(!saved);
    }
    // To the place of the hidden cmdSave, and back beside it.
    ui->layoutButtons->removeWidget(ui->cmdFind);
    ui->layoutButtons->insertWidget(ui->layoutButtons->indexOf(ui->cmdSave) + (saved ? 0 : 1), ui->cmdFind);
    ui->cmdFind->setEnabled(true);
    if (saved) {
        listQueries();
    }
}

void frmFind::listQueries() {
    FlexGrid* fg1 = ui->fg1;
    fg1->setFormatString(u"序号|查询说明|  操作  |"_s);
    fg1->setRows(1);
    fg1->setColHidden(idCol, true);
    fg1->setStretchCol(1);
    fg1->setColAlignment(deleteCol, GridAlign::CenterCenter);
    cQuerys queries;
    for (const auto& query : queries.Find(0)) {
        const int row = fg1->Rows();
        fg1->AddItem(
            u"%1\t%2\t删除\t%3"_s.arg(QString::number(row), query->Query.text(), QString::number(query->QueryID)));
        fg1->setRowData(row, query->Condition);
        fg1->setCellForeColor({row, deleteCol, row, deleteCol}, theme::Accent);
    }
    if (fg1->Rows() == 1) {
        ui->cmdFind->setEnabled(false);
    } else {
        fg1->Select(1, 0);
    }
}

void frmFind::fg1_Click() {
    const int row = ui->fg1->ClickedRow();
    if (ui->fg1->ClickedCol() != deleteCol || row < 1) {
        return;
    }
    // Without a question, and gone from the list whatever became of it in the table.
    cQuery::Delete(toInt16(ui->fg1->TextMatrix(row, idCol)));
    ui->fg1->RemoveItem(row);
    if (ui->fg1->Rows() == 1) {
        ui->cmdFind->setEnabled(false);
    }
}

void frmFind::cmbDate_Click() {
    const bool chosen = ui->cmbDate->ListIndex() == chosenDates;
    for (QWidget* control : std::initializer_list<QWidget*>{ui->dtpDate1, ui->Label2, ui->dtpDate2}) {
        control->setVisible(chosen);
    }
}

/// The verdicts follow the ticks of the types. One that two types share stands there twice, and goes once with each.
void frmFind::lstType_ItemCheck(QListWidgetItem* item) {
    cTestings results;
    for (const auto& result : results.GetTestingResult(item->text())) {
        if (item->checkState() == Qt::Checked) {
            addUnchecked(ui->lstResult, result->TestingResult);
        } else {
            removeFirst(ui->lstResult, result->TestingResult);
        }
    }
}

void frmFind::cmdFind_Click() {
    if (ui->SSTab1->currentIndex() == savedQueriesTab) {
        strSQL = ui->fg1->RowData(ui->fg1->Row());
        Unload();
        // What follows loads the window afresh, and its defaults make the statement that takes this one's place. That
        // is meant: saved queries that keep their own statement come through the workbench's menu.
    }
    if (ui->txtName->text().contains(u'\'')) {
        warn(u"［姓名］中不可输入字符[']！"_s, ui->txtName);
        return;
    }
    if (ui->dtpDate1->date() > ui->dtpDate2->date()) {
        warn(u"［开始日期］必须小于等于［截止日期］！"_s, ui->dtpDate1);
        return;
    }
    strSQL = BuildQuerySQL(criteria(), ui->optAnd->isChecked() ? u" and "_s : u" or "_s);
    Unload();
}

void frmFind::cmdSave_Click() {
    // No blanks around the word here, unlike in cmdFind, and the text is kept as it comes, valid or not.
    const QString statement = BuildQuerySQL(criteria(), ui->optAnd->isChecked() ? u"and"_s : u"or"_s);
    if (statement.isEmpty()) {
        MsgBox(u"请先设置查询的条件！"_s, vbExclamation);
        return;
    }
    const QString description = InputBox(u"请输入简要的查询说明："_s);
    if (description.isEmpty()) {
        return;
    }
    // Said whatever came of it, also for a description that is taken.
    cQuery::AddNew(description, statement);
    MsgBox(u"保存成功！"_s, vbInformation);
}

}  // namespace talvora
