#include "bench/benchmarks.h"
#include "bench/board_process.h"
#include "bench/event_loop_gap.h"
#include "bench/figures.h"
#include "bench/window_under_test.h"
#include "screens/main_display.h"
#include "shell/processing_dialog.h"

#include <QApplication>
#include <QElapsedTimer>

#include <array>
#include <stdexcept>

namespace tambrix::bench {

namespace {

constexpr double kEfficiencyAim = 0.95;
constexpr double kGapAim = 50; // ms
constexpr int kFileRounds = 51;

/// The program's window on line, with its poll and its Main Display.
struct TransferUnderTest : WindowUnderTest
{
    TransferUnderTest(const QString& device, int baud)
        : WindowUnderTest(device, baud, {makeScreen<MainDisplay>})
    {
        window.goOnline();
        if (!state.gLink.OnlineMode)
            throw std::runtime_error("the board does not answer");
    }
};

/// Labels 0 to 99 behind the progress dialog, or 0 to 4 in a short run. Every byte out is answered
/// by one byte back.
void transfer(TransferUnderTest& test, int code, const std::string& what, int baud)
{
    const LabelRange labels{0, 5 * rounds(kLabels / 5) - 1, false};
    test.port.bytes.clear();
    EventLoopGap gap;
    gap.start();
    QElapsedTimer timer;
    timer.start();
    ProcessingDialog dialog(test.state, transferPlan(code, labels), &test.window);
    dialog.exec();
    const double seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
    const double longest = gap.stop();
    if (test.state.gLink.CommError)
        throw std::runtime_error("the transfer broke off");
    report(what + ", labels 0 to " + std::to_string(labels.last), seconds, "s");
    reportAtLeast("  wire efficiency", test.bitsOnWire() / baud / seconds, kEfficiencyAim);
    reportAtMost("  longest unserved event-loop time", longest, kGapAim, "ms");
}

void transfersAt(int baud)
{
    const std::string speed = std::to_string(baud);
    const BoardProcess board({QStringLiteral("--baud"), QString::fromStdString(speed)});
    TransferUnderTest test(board.device(), baud);
    transfer(test, transfer_code::kLabelData, "upload at " + speed, baud);
    transfer(test, transfer_code::kDownload + transfer_code::kLabelData, "download at " + speed,
             baud);
}

/// Median of saving and of opening a whole set-up file.
void files(FileCommands& commands, ProgramState& state)
{
    state.gUntitled = false;
    state.gFileNamePath = state.programFolder.filePath(QStringLiteral("bench.sdt"));
    std::array<std::vector<double>, 2> times; // ms
    for (int i = 0; i < rounds(kFileRounds); ++i) {
        QElapsedTimer timer;
        timer.start();
        if (!commands.save())
            throw std::runtime_error("the file cannot be saved");
        times[0].push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
        timer.start();
        commands.openFile(state.gFileNamePath);
        times[1].push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    report("saving a set-up file, median", median(times[0]), "ms");
    report("opening it, median", median(times[1]), "ms");
}

void filesUnderTest()
{
    const BoardProcess board({});
    TransferUnderTest test(board.device(), 9600);
    files(test.window.files(), test.state);
}

} // namespace

int transferProcess(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    try {
        transfersAt(9600);
        transfersAt(19200);
        filesUnderTest();
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "tambrix_bench: %s\n", failure.what());
        return 1;
    }
    report("peak memory", peakMemory(), "MiB");
    return 0;
}

void transferCost(const QString& program)
{
    if (QProcess::execute(program, {QStringLiteral("--transfer-process")}) != 0)
        throw std::runtime_error("the transfers did not end");
}

} // namespace tambrix::bench
