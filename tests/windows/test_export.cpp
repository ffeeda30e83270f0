// What the export routines write, cell by cell, and what the workbook's window and its preview do with it.

#include "results/export/export_list.h"
#include "results/export/export_reports.h"
#include "spreadsheet/frmpreview.h"
#include "spreadsheet/frmworkbook.h"
#include "tests/support/database_fixture.h"
#include "tests/support/error_of.h"
#include "tests/support/windows.h"
#include "toolkit/grid/flexgrid.h"

#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QPrinter>
#include <QProcess>
#include <QProgressBar>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextBrowser>

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

class ExportTest : public WindowTest {
 protected:
    /// The window that the last export has opened.
    static frmWorkbook& window() { return dynamic_cast<frmWorkbook&>(*Form::loaded().back()); }
    static const Workbook& sheet() { return window().Sheet->workbook(); }

    /// The sheet as lines of text, a row each, as list_workbook.py gives a file: cells parted by "|", each with its
    /// looks behind a "~": s shaded, b boxed, l left, m centred in height, t text for good, B16 bold of 16 points; a
    /// number has a "#" in front. Then a line for each merged block.
    static QString listing() {
        QStringList lines;
        for (int row = 1; row <= sheet().rows(); ++row) {
            QStringList cells;
            for (int column = 1; column <= sheet().columns(); ++column) {
                const CellFormat look = sheet().format(row, column);
                const QString looks = (look.shaded ? u"s"_s : u""_s) + (look.boxed ? u"b"_s : u""_s) +
                                      (look.left ? u"l"_s : u""_s) + (look.middle ? u"m"_s : u""_s) +
                                      (look.text ? u"t"_s : u""_s) + (look.bold ? u"B%1"_s.arg(look.size) : u""_s);
                const QString text = (sheet().number(row, column) ? u"#"_s : u""_s) + sheet().text(row, column);
                const CellRange whole = sheet().mergeAt(row, column);
                const bool hidden = whole.row != row || whole.column != column;
                cells += hidden ? u""_s : looks.isEmpty() ? text : text + u'~' + looks;
            }
            lines += cells.join(u'|');
        }
        for (const CellRange& merge : sheet().merges()) {
            lines += u"%1,%2-%3,%4"_s.arg(merge.row).arg(merge.column).arg(merge.row2).arg(merge.column2);
        }
        return lines.join(u'\n');
    }

    FlexGrid grid;
    QProgressBar bar;
};

TEST(ColumnName, IsTheAddressWithItsAtSigns) {
    for (const auto& [column, name] : std::initializer_list<std::pair<int, const char*>>{
             {1, "A7"}, {26, "Z7"}, {27, "AA7"}, {51, "AY7"}, {52, "B@7"}, {53, "BA7"}, {676, "Z@7"}, {701, "ZY7"}}) {
        EXPECT_EQ(ColumnName(7, column), QLatin1StringView(name));
    }
    EXPECT_EQ(errorOf([] { ColumnName(1, 702); }), 100000);
}

TEST(Workbook, KeepsTextsThatAreNoShownNumber) {
    Workbook sheet;
    int row = 0;
    QString kinds;
    for (const QString& text :
         {u"34"_s, u"-0.5"_s, u"007"_s, u"'34"_s, u"110101199001011"_s, u"1e3"_s, u" 1"_s, u"３"_s}) {
        sheet.SetCell(++row, 1, text);
        EXPECT_EQ(sheet.text(row, 1), text.startsWith(u'\'') ? text.mid(1) : text);
        kinds += sheet.number(row, 1) ? u'n' : u't';
    }
    EXPECT_EQ(kinds, u"nntttttt"_s);
    sheet.SetCell(1, 1, u"a%1%2b"_s.arg(QChar(0xFFFF)).arg(QChar(0)));
    EXPECT_EQ(sheet.text(1, 1), u"ab"_s);
    for (const QString& address : {u"A2:B@2"_s, u"A0"_s, u"A1:XFE1"_s, u"A2:"_s}) {
        EXPECT_EQ(errorOf([&] { sheet.SelectRange(address); }), Workbook::Refused) << address.toStdString();
    }
    EXPECT_EQ(errorOf([&] { sheet.SelectRange({1, 1, MaxSheetRow + 1, 1}); }), Workbook::Refused);
    EXPECT_EQ(errorOf([&] { sheet.SetCell(1, 0, 1.0); }), Workbook::Refused);
}

TEST_F(ExportTest, ListGoesOutAsItStands) {
    grid.setFormatString(u"Key|姓名|隐藏|年龄|编号"_s);
    grid.setColHidden(0, true);
    grid.setColHidden(2, true);
    PromptScript script;
    script.expect(vbOK, u"没有数据记录，不需导出！"_s);
    ExportList(grid, false, u"测评记录明细"_s, bar);
    EXPECT_EQ(script.last().style, vbInformation);
    grid.AddItem(u"k\t类型"_s);
    grid.setIsSubtotal(1, true);
    grid.AddItem(u"k\t张三\t-\t34\t007"_s);
    ExportList(grid, false, u"测评记录明细"_s, bar);
    EXPECT_EQ(listing(), u"|测评记录明细|~B16\n姓名~sbt|年龄~sbt|编号~sbt\n类型~bt|~bt|~bt\n张三~bt|34~bt|007~bt"_s);
    EXPECT_TRUE(bar.isHidden());
    EXPECT_EQ(bar.maximum(), 2);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(ExportTest, TitleOfAListStandsAtHalfItsColumnsRoundedToEven) {
    for (const auto& [columns, place] : {std::pair(2, 1), {3, 2}, {4, 2}, {5, 2}, {11, 6}, {17, 8}}) {
        grid.setFormatString(QString(columns - 1, u'|'));
        grid.setRows(2);
        ExportList(grid, false, u"标题"_s, bar);
        EXPECT_EQ(sheet().text(1, place), u"标题"_s) << columns << " columns";
    }
}

TEST_F(ExportTest, The52ndVisibleColumnHasNeitherShadesNorLines) {
    grid.setFormatString(QString(51, u'|'));
    grid.AddItem(u"a"_s);
    ExportList(grid, false, u"标题"_s, bar);
    EXPECT_EQ(sheet().columns(), 52);
    EXPECT_EQ(sheet().text(1, 26), u"标题"_s);
    EXPECT_TRUE(!sheet().format(2, 1).shaded && !sheet().format(2, 1).boxed && !sheet().format(1, 3).shaded);

    grid.setFormatString(QString(701, u'|'));  // more columns than an address has letters for
    ExportList(grid, false, u"标题"_s, bar);
    EXPECT_EQ(sheet().text(1, 351) + sheet().text(3, 1), u"标题a"_s);
}

TEST_F(ExportTest, ReportsHaveABlockForEachRecord) {
    const EmbeddedDatabase database;
    for (const QString& values :
         {u"1,'经理模型',null"_s, u"1,'沟通','001'"_s, u"1,'表达','001001'"_s, u"1,'倾听','001002'"_s}) {
        cnnPublic.Execute(u"insert into TestingResult (TestingNumber,TypeName,TypeCode) values (%1)"_s.arg(values));
    }
    cnnPublic.Execute(
        u"insert into TestingResultDetail (TestingID,ExaminationID,QuestionName,Answer1,Answer2,SelectAnswer,Score) "
        "values (3,1,'题一','是','否','A',2)"_s);
    cnnPublic.Execute(u"insert into Examination (TypeCode,ExaminationNum) values ('001001','007')"_s);
    cnnPublic.Execute(
        u"insert into ExaminationQuestion (ExaminationID,QuestionName,Answer1,Score1,Score2) values (1,'题','甲',5,-1)"_s);
    PromptScript script;
    script.expect(vbOK, u"没有选择或不存在数据记录，不需导出！"_s);
    ExportPaperReport(grid, false, u"详细测评试卷"_s, bar, false);

    grid.setFormatString(QString(16, u'|'));
    grid.AddItem(u"0\t分类"_s);
    grid.setIsSubtotal(1, true);
    grid.AddItem(
        u"1\t1\t张三\t女\t34\t110101199001011234\t本科\t会计\t3000~5000\t2010-09-05 08:30:00\t经理模型\t1.0\t1\t1\t2\t良好"_s);
    grid.AddItem(u"2\t不是数"_s);
    script.expect(vbOK, u"没有选择或不存在数据记录，不需导出！"_s);
    ExportTestingReport(grid, false, u"详细测评报告"_s, bar, true);
    grid.Select(1, 1, 2, 1);
    ExportTestingReport(grid, false, u"详细测评报告"_s, bar, true);
    const QString expected =
        uR"(||~B16||详细测评报告|||||
姓    名~sb|张三~bl|性    别~sb|女~bl|年    龄~sb|#34~bl|身份证号~sb|110101199001011234~bl|学    历~sb|本科~bl
职    位~sb|会计~bl|薪资范围~sb|3000~5000~bl|测评时间~sb|2010-09-05 08:30:00~bl|测评类型~sb|经理模型~bl|模型版本~sb|1.0~bl
试卷题目数~sb|#1~bl|实际答题数~sb|#1~bl|测评得分~sb|#2~bl|测评结果~sb|良好~bl|结果说明~sb|~bl
测评题目（类型）~sb|||选项A~sb|选项B~sb|选项C~sb|选项D~sb|选项E~sb|选择~sb|得分~sb
题一~b|||是~b|否~b|~b|~b|~b|A~b|#2~b
   倾听|||||||||
5,1-5,3
6,1-6,3)"_s;
    EXPECT_EQ(listing(), expected);
    EXPECT_EQ(bar.maximum(), 2);
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"表.xlsx"_s);
    script.expectSaveFile(file);
    click(window().ui->cmdSave);
    QProcess python;
    // Another python on the path need not have the package.
    const QString packaged = QStandardPaths::findExecutable(u"python3"_s, {u"/usr/bin"_s});
    python.start(packaged.isEmpty() ? u"python3"_s : packaged,
                 {u"-X"_s, u"utf8"_s, QStringLiteral(TALVORA_SOURCE_DIR "/tests/windows/list_workbook.py"), file});
    if (!python.waitForFinished() || python.readAllStandardError().contains("No module named 'openpyxl'")) {
        GTEST_LOG_(WARNING) << "python3-openpyxl is not installed: no other program has read the file";
    } else {
        EXPECT_EQ(QString::fromUtf8(python.readAllStandardOutput()).trimmed(), expected);
    }

    grid.setRows(1);
    grid.AddItem(u"001001\t  表达"_s);
    grid.setIsSubtotal(1, true);
    grid.AddItem(u"0010011\t  007\t作者\t审核\t批准\t写\t审\t批\t2\t1\t30\t说明"_s);
    grid.AddItem(u"0010012\t  没有"_s);
    ExportPaperReport(grid, false, u"详细测评试卷"_s, bar, false);
    EXPECT_EQ(listing(),
              uR"(||~B16|||详细测评试卷||||||
试卷类型~sblm|  表达~blm|试卷编号~sblm|  007~blm|编制人员~sblm|作者~blm|编制日期~sblm|写~blm|审核人员~sblm|审核~blm|审核日期~sblm|审~blm
批准人员~sblm|批准~blm|批准日期~sblm|批~blm|每题答案数~sblm|#2~blm|试卷题目数~sblm|#1~blm|测评时长~sblm|#30~blm|试卷说明~sblm|说明~blm
序号~sblm|题目~sblm|选项A~sblm|分数~sblm|选项B~sblm|分数~sblm|选项C~sblm|分数~sblm|选项D~sblm|分数~sblm|选项E~sblm|分数~sblm
#1~blm|题~blm|甲~blm|#5~blm|~blm|#-1~blm|~blm|#0~blm|~blm|#0~blm|~blm|#0~blm
|||||||||||
试卷类型~sblm|  007~blm|试卷编号~sblm|  没有~blm|编制人员~sblm|~blm|编制日期~sblm|~blm|审核人员~sblm|~blm|审核日期~sblm|~blm
批准人员~sblm|~blm|批准日期~sblm|~blm|每题答案数~sblm|~blm|试卷题目数~sblm|~blm|测评时长~sblm|~blm|试卷说明~sblm|~blm
序号~sblm|题目~sblm|选项A~sblm|分数~sblm|选项B~sblm|分数~sblm|选项C~sblm|分数~sblm|选项D~sblm|分数~sblm|选项E~sblm|分数~sblm)"_s);
}

TEST(SheetPages, RepeatHeadsAndKeepBlocksWhole) {
    Workbook sheet;
    for (const int row : {1, 2, 3, 4, 5, 7, 8, 9, 10, 11, 12, 13, 14}) {
        sheet.SetCell(row, 1, double(row));
    }
    QString pages;
    const auto paginate = [&] {
        for (const SheetPage& page : sheetPages(sheet, SheetLayout(sheet), 5 * SheetLayout::DefaultHeight)) {
            pages += u"%1-%2/%3 "_s.arg(page.first).arg(page.last).arg(page.headRow);
        }
    };
    sheet.RepeatRow(2);
    paginate();
    sheet.RepeatRow(0);
    for (const RowBlock& block : {RowBlock{2, 4, 3}, RowBlock{5, 5, 5}, RowBlock{7, 14, 8}}) {
        sheet.KeepTogether(block);
    }
    paginate();
    EXPECT_EQ(SheetLayout(sheet).heightOf({14, 1, 30, 1}), 17 * SheetLayout::DefaultHeight) << "behind the last row";
    EXPECT_EQ(pages, u"1-5/0 7-10/2 11-14/2 1-5/0 7-11/0 12-14/8 "_s);
}

TEST_F(ExportTest, WindowSavesOpensAndPrints) {
    grid.setFormatString(u"编号|姓名"_s);
    for (int row = 0; row < 100; ++row) {
        grid.AddItem(u"1\t张三"_s);
    }
    const QTemporaryDir folder;
    const QString pdf = folder.filePath(u"p.pdf"_s);
    setPrinterChoice([&](QPrinter& printer, int, QWidget*) {
        printer.setOutputFileName(pdf);
        return true;
    });
    whenModal<frmPreview>([](frmPreview& preview) {
        EXPECT_EQ(preview.ui->lblPage->text(), u"第 1 页，共 3 页"_s);
        press(Qt::Key_End);
        EXPECT_EQ(preview.ui->lblPage->text(), u"第 3 页，共 3 页"_s);
        click(preview.ui->cmdPrint);
        press(Qt::Key_Escape);
    });
    ExportList(grid, true, u"甲/乙"_s, bar);
    setPrinterChoice({});
    QFile printed(pdf);
    ASSERT_TRUE(printed.open(QIODevice::ReadOnly));
    EXPECT_EQ(printed.readAll().count("/Type /Page\n"), 3);

    PromptScript script;
    script.expectSaveFile(folder.filePath(u"没有/a.xlsx"_s)).expect();
    click(window().ui->cmdSave);
    EXPECT_EQ(script.last().style, vbExclamation);
    QTextBrowser spreadsheetProgram;
    QDesktopServices::setUrlHandler(u"file"_s, &spreadsheetProgram, "setSource");
    click(window().ui->cmdOpen);
    QDesktopServices::unsetUrlHandler(u"file"_s);
    const QFileInfo opened(spreadsheetProgram.source().toLocalFile());
    EXPECT_EQ(opened.fileName(), u"甲_乙.xlsx"_s);
    EXPECT_TRUE(opened.size() > 0 && !(opened.permissions() & QFileDevice::WriteOwner));
    click(window().ui->cmdClose);
    EXPECT_TRUE(Form::loaded().empty());
}

}  // namespace

}  // namespace talvora::test
