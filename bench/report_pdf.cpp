#include "bench/benchmarks.h"
#include "bench/figures.h"
#include "bench/link_under_test.h"
#include "reports/reports.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPainter>
#include <QPdfWriter>
#include <QProcess>

#include <stdexcept>

namespace tambrix::bench {

namespace {

constexpr int kRounds = 11;
constexpr int kRowsPerPage = 50;

/// Every text of the report, row after row, without layout, rules or a window.
void writeBare(const Report& report, const QString& path)
{
    QPdfWriter pdf(path);
    QPainter painter(&pdf);
    int rows = 0;
    for (const ReportTable& table : report.tables) {
        for (const ReportBlock& block : table.blocks) {
            for (const QStringList& row : block.rows) {
                if (++rows % kRowsPerPage == 0)
                    pdf.newPage();
                for (int cell = 0; cell < row.size(); ++cell)
                    painter.drawText(cell * 800, rows % kRowsPerPage * 200, row[cell]);
            }
        }
    }
}

template <typename Work> double milliseconds(const Work& work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

} // namespace

int reportProcess(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    const BenchFolder folder(9600);
    const QDir files(QString::fromStdString(folder.path().string()));
    SteadyClock clock;
    QtSerialPort port(clock, {});
    AbsentOperator nobody;
    ProgramState state(files, port, clock, nobody);
    state.InitSetupData();
    Reports reports(state);

    const Report texts = reportContent(state, QDateTime::currentDateTime());
    std::vector<double> bare, whole;
    const double before = peakMemory();
    for (int round = 0; round < rounds(kRounds); ++round) {
        bare.push_back(milliseconds([&] { writeBare(texts, files.filePath("bare.pdf")); }));
        whole.push_back(milliseconds([&] { reports.writePdf(files.filePath("report.pdf")); }));
    }
    report("report of all labels as PDF, median", median(whole), "ms");
    report("  the same texts put bare on a PDF", median(bare), "ms");
    report("  report / bare", median(whole) / median(bare), "");
    report("  size of the file",
           static_cast<double>(QFile(files.filePath("report.pdf")).size()) / 1024, "KiB");
    report("  peak memory before it", before, "MiB");
    report("  peak memory", peakMemory(), "MiB");
    return 0;
}

void reportPdf(const QString& program)
{
    if (QProcess::execute(program, {QStringLiteral("--report-process")}) != 0)
        throw std::runtime_error("the report was not made");
}

} // namespace tambrix::bench
