// The export of a list of 100,000 rows and 16 columns, from the list to the file, against the library writing the same
// cells with no sheet in between, and against LibreOffice making the same table from CSV. Of the latter there is only
// something to see where LibreOffice is installed (Debian: libreoffice-calc-nogui).

#include "bench/bank.h"
#include "results/export/export_list.h"
#include "spreadsheet/frmworkbook.h"
#include "spreadsheet/workbook_file.h"
#include "toolkit/application/application.h"
#include "toolkit/grid/flexgrid.h"

#include <QFile>
#include <QProcess>
#include <QProgressBar>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <xlsxwriter.h>

#include <vector>

namespace talvora::bench {

namespace {

using namespace Qt::StringLiterals;

constexpr int rows = 100'000;
constexpr int columns = 16;

QString cellText(int row, int column) {
    switch (column % 4) {
        case 0:
            return QString::number(row * columns + column);
        case 1:
            return u"考生%1"_s.arg(row);
        case 2:
            return u"2010-09-05 08:%1:00"_s.arg(row % 60, 2, 10, QChar(u'0'));
        default:
            return u"财务会计主管"_s;
    }
}

/// The list as the workbench holds it: its key hidden, its cells in one text a row.
class List {
 public:
    List() {
        grid.setFormatString(u"键"_s + u"|标题"_s.repeated(columns));
        grid.setColHidden(0, true);
        for (int row = 0; row < rows; ++row) {
            QString cells = QString::number(row);
            for (int column = 0; column < columns; ++column) {
                cells += u'\t' + cellText(row, column);
            }
            grid.AddItem(cells);
        }
    }

    /// Exports as a user does, and saves what the window then holds.
    void exportTo(const QString& file) {
        ExportList(grid, false, u"测评记录明细"_s, bar);
        auto& window = dynamic_cast<frmWorkbook&>(*Form::loaded().back());
        saveWorkbook(window.Sheet->workbook(), window.Sheet->layout(), file);
        window.Unload();
        QCoreApplication::processEvents();
    }

    FlexGrid grid;
    QProgressBar bar;
};

/// The cells' texts as the library takes them, row by row.
std::vector<QByteArray> plainTexts() {
    std::vector<QByteArray> texts;
    texts.reserve(std::size_t{rows} * columns);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            texts.push_back(cellText(row, column).toUtf8());
        }
    }
    return texts;
}

/// The same cells by the library alone, as its manual shows it.
void writePlainly(const std::vector<QByteArray>& texts, const QString& file, const QString& folder) {
    QByteArray temporary = QFile::encodeName(folder);
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = temporary.data();
    lxw_workbook* workbook = workbook_new_opt(QFile::encodeName(file).constData(), &options);
    lxw_worksheet* sheet = workbook_add_worksheet(workbook, nullptr);
    auto text = texts.cbegin();
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            worksheet_write_string(sheet, static_cast<lxw_row_t>(row), static_cast<lxw_col_t>(column),
                                   text++->constData(), nullptr);
        }
    }
    workbook_close(workbook);
}

void exportAgainstTheLibrary(benchmark::State& state) {
    const QTemporaryDir folder;
    List list;
    const std::vector<QByteArray> texts = plainTexts();
    Costs costs;
    Costs plain;
    for (auto _ : state) {
        plain.measure([&] { writePlainly(texts, folder.filePath(u"plain.xlsx"_s), folder.path()); });
        costs.measure([&] { list.exportTo(folder.filePath(u"list.xlsx"_s)); });
        state.SetIterationTime(costs.last());
    }
    report(state, "talvora_ms", costs, "plain_ms", plain);
}
BENCHMARK(exportAgainstTheLibrary)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

void exportAgainstLibreOffice(benchmark::State& state) {
    const QString office = QStandardPaths::findExecutable(u"soffice"_s);
    if (office.isEmpty()) {
        state.SkipWithError("LibreOffice is not installed");
        return;
    }
    const QTemporaryDir folder;
    List list;
    QFile csv(folder.filePath(u"table.csv"_s));
    csv.open(QIODevice::WriteOnly);
    for (int row = 0; row < rows; ++row) {
        QStringList cells;
        for (int column = 0; column < columns; ++column) {
            cells += cellText(row, column);
        }
        csv.write(cells.join(u',').toUtf8() + '\n');
    }
    csv.close();
    Costs costs;
    Costs converted;
    for (auto _ : state) {
        // Commas, UTF-8, all columns as text.
        converted.measure([&] {
            QProcess::execute(office, {u"--headless"_s, u"-env:UserInstallation=file://"_s + folder.path(),
                                       u"--infilter=CSV:44,34,76,1,,0,true"_s, u"--convert-to"_s, u"xlsx"_s,
                                       u"--outdir"_s, folder.path(), csv.fileName()});
        });
        costs.measure([&] { list.exportTo(folder.filePath(u"list.xlsx"_s)); });
        state.SetIterationTime(costs.last());
        if (!QFile::exists(folder.filePath(u"table.xlsx"_s))) {
            state.SkipWithError("LibreOffice has written nothing");
        }
    }
    report(state, "talvora_ms", costs, "libreoffice_ms", converted);
    // The other program's time is not this process's.
    state.counters.erase("cpu_ratio");
}
BENCHMARK(exportAgainstLibreOffice)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(2);

}  // namespace

}  // namespace talvora::bench

int main(int argc, char** argv) {
    talvora::Application application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
