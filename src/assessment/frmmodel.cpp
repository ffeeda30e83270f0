#include "assessment/frmmodel.h"

#include "models/cdimension.h"
#include "models/csolution.h"
#include "models/line_text.h"
#include "platform/random.h"
#include "testbank/cexamination.h"
#include "toolkit/forms/prompts.h"
#include "toolkit/grid/flexgrid.h"

#include <QAbstractItemModel>
#include <QHeaderView>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int codeCol = 0;
constexpr int nameCol = 1;
constexpr int paperCol = 2;

bool isDimension(const QString& typeCode) {
    return typeCode.size() == DimensionDigits;
}

}  // namespace

void frmModel::wire() {
    Combo1 = new ComboBox(ui->fg1->viewport());
    Combo1->setObjectName(u"Combo1"_s);
    Combo1->setAccessibleName(u"测评试卷"_s);
    Combo1->hide();
    on(ui->fg1, &FlexGrid::Click, &frmModel::fg1_Click);
    // What moves its cell away takes the list with it; the next click brings it back.
    const auto hideList = [this] { Combo1->hide(); };
    on(ui->fg1->model(), &QAbstractItemModel::rowsInserted, hideList);
    on(ui->fg1->model(), &QAbstractItemModel::rowsRemoved, hideList);
    on(ui->fg1->model(), &QAbstractItemModel::modelReset, hideList);
    on(ui->fg1->horizontalHeader(), &QHeaderView::sectionResized, hideList);
    on(ui->cmdOK, &QPushButton::clicked, &frmModel::cmdOK_Click);
    on(ui->cmdClose, &QPushButton::clicked, &frmModel::cmdClose_Click);
}

void frmModel::setUpGrid() {
    // The blanks make room for the list over the cell, with a number of ten characters in it.
    ui->fg1->setFormatString(u"|测评要素|  测评试卷"_s + QString(10, u' '));
    ui->fg1->setRows(1);
    ui->fg1->setColHidden(codeCol, true);
    ui->fg1->setStretchCol(nameCol);
    ui->fg1->setOutlineCol(nameCol);
    ui->fg1->setOutlineBar(GridOutlineBar::CompleteLeaf);
}

void frmModel::Form_Load() {
    setUpGrid();
    cSolutions solutions;
    ui->lblModel->setText(solutions.Find(SolutionID).Item(1)->SolutionName);
    cDimensions lines;
    for (const auto& line : lines.Find(SolutionID)) {
        ui->fg1->AddItem(line->TypeCode + u'\t' + line->TypeName);
        const int row = ui->fg1->Rows() - 1;
        ui->fg1->setIsSubtotal(row, isDimension(line->TypeCode));
        ui->fg1->setRowOutlineLevel(row, isDimension(line->TypeCode) ? 1 : 2);
    }
    for (int row = 1; row < ui->fg1->Rows(); ++row) {
        if (!isDimension(ui->fg1->TextMatrix(row, codeCol))) {
            FillPaperList(row);
        }
    }
}

void frmModel::FillPaperList(int row) {
    Combo1->Clear();
    cExaminations papers;
    for (const auto& paper : papers.FindByTypeCode(ui->fg1->TextMatrix(row, codeCol), false)) {
        Combo1->AddItem(paper->ExaminationNum);
    }
    if (ui->fg1->TextMatrix(row, paperCol).isEmpty() && Combo1->ListCount() > 0) {
        ui->fg1->setTextMatrix(row, paperCol, Combo1->List(randomIndex(Combo1->ListCount())));
    }
}

void frmModel::fg1_Click() {
    const int row = ui->fg1->Row();
    const int col = ui->fg1->Col();
    if (col == paperCol) {
        FillPaperList(row);
    }
    const QRect cell = col == paperCol && row > 0 ? ui->fg1->CellRect(row, col) : QRect();
    if (cell.isEmpty()) {
        Combo1->hide();
        return;
    }
    Combo1->setGeometry(cell);
    // The list only shows what there is to draw from: choosing in it does not change the cell. A paper that is no
    // longer among them is shown all the same.
    const QString paper = ui->fg1->TextMatrix(row, col);
    Combo1->setPlaceholderText(paper);
    Combo1->setListIndex(Combo1->findText(paper));
    Combo1->show();
}

void frmModel::cmdOK_Click() {
    Testings->Clear();
    for (int row = 1; row < ui->fg1->Rows(); ++row) {
        const QString code = ui->fg1->TextMatrix(row, codeCol);
        const QString paper = ui->fg1->TextMatrix(row, paperCol);
        if (!isDimension(code) && paper.isEmpty()) {
            MsgBox(u"某些测评维度尚未设置试卷，您不能继续测评！"_s, vbInformation);
            return;
        }
        auto testing = std::make_shared<cTesting>();
        testing->TestingID = row;
        testing->TypeCode = code;
        testing->TypeName = ui->fg1->TextMatrix(row, nameCol);
        testing->TestingDesc = paper;
        Testings->Add(testing);
    }
    IsCancel = false;
    Unload();
}

void frmModel::cmdClose_Click() {
    IsCancel = true;
    Unload();
}

}  // namespace talvora
