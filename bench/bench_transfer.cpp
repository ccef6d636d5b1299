#include "bench/benchmarks.h"
#include "bench/board_process.h"
#include "bench/event_loop_gap.h"
#include "bench/figures.h"
#include "bench/plain_rounds.h"
#include "bench/program_application.h"
#include "bench/window_under_test.h"
#include "screens/main_display.h"
#include "shell/processing_dialog.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>

#include <cstdio>
#include <fcntl.h>
#include <functional>
#include <stdexcept>
#include <unistd.h>
#include <vector>

namespace tambrix::bench {

namespace {

constexpr double kGapAim = 35; // ms
constexpr int kRounds = 15;
constexpr int kLastLabel = 9;
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

/// Ten labels behind the progress dialog, again and again.
void transfer(TransferUnderTest& test, int code, const std::string& what, PlainRounds against)
{
    const auto once = [&] {
        ProcessingDialog dialog(test.state, transferPlan(code, {0, kLastLabel, false}),
                                &test.window);
        dialog.exec();
        if (test.state.gLink.CommError)
            throw std::runtime_error("the transfer broke off");
    };
    for (int i = 0; i < rounds(kRounds); ++i) {
        against.begin();
        once();
        against.end();
    }
    against.tell(what);
    EventLoopGap gap; // by itself: its timer takes time from every turn
    gap.start();
    once();
    reportAtMost("  longest unserved event-loop time", gap.stop(), kGapAim, "ms");
}

void transfersAt(int baud)
{
    const std::string speed = std::to_string(baud);
    const BoardProcess board({QStringLiteral("--baud"), QString::fromStdString(speed)});
    TransferUnderTest test(board.device(), baud);
    const auto measure = [&](int code, const std::string& what) {
        transfer(test, code, what + " at " + speed, {board.device(), test.port, baud});
    };
    measure(transfer_code::kLabelData, "upload");
    measure(transfer_code::kDownload + transfer_code::kLabelData, "download");
}

/// What no save that outlives a power cut can do without.
void bareSave(const QByteArray& bytes, const QString& path)
{
    const QByteArray name = path.toLocal8Bit();
    const QByteArray part = name + ".part";
    const Descriptor file(open(part, O_WRONLY | O_CREAT | O_TRUNC, 0600));
    if (write(file.value(), bytes, static_cast<std::size_t>(bytes.size())) != bytes.size() ||
        fsync(file.value()) != 0 || std::rename(part, name) != 0)
        throw std::runtime_error("the bare file cannot be written");
}

/// Saving and opening a whole set-up file, each in turn with a bare save of the same bytes.
void files(FileCommands& commands, ProgramState& state)
{
    state.gUntitled = false;
    state.gFileNamePath = state.programFolder.filePath(QStringLiteral("bench.sdt"));
    const QString bareName = state.programFolder.filePath(QStringLiteral("bare.sdt"));
    const auto save = [&] {
        if (!commands.save())
            throw std::runtime_error("the file cannot be saved");
    };
    save();
    QFile saved(state.gFileNamePath);
    const QByteArray bytes = saved.open(QIODevice::ReadOnly) ? saved.readAll() : QByteArray();
    std::vector<double> bare; // ms
    std::vector<double> saving;
    std::vector<double> opening;
    for (int i = 0; i < rounds(kFileRounds); ++i) {
        bare.push_back(seconds([&] { bareSave(bytes, bareName); }) * 1000);
        saving.push_back(seconds(save) * 1000 / bare.back());
        opening.push_back(seconds([&] { commands.openFile(state.gFileNamePath); }) * 1000 /
                          bare.back());
    }
    report("a bare write, fsync and rename of a set-up file", median(bare), "ms");
    reportRatios("  saving it, times that", saving, 1.5);
    reportRatios("  opening it, times that", opening, 1.5);
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
    const ProgramApplication application(argc, argv);
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
