#include "bench/benchmarks.h"
#include "bench/board_process.h"
#include "bench/figures.h"
#include "bench/program_application.h"
#include "bench/window_under_test.h"
#include "screens/color_control_screen.h"
#include "screens/io_status_screen.h"
#include "screens/main_display.h"
#include "screens/setup_screen.h"
#include "screens/shift_data_screen.h"

#include <QApplication>
#include <QMainWindow>
#include <QProcess>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <stdexcept>

namespace tambrix::bench {

namespace {

constexpr int kRounds = 15;
constexpr int kBaud = 9600;
constexpr double kStartAim = 3;    // times a bare window's
constexpr double kMemoryAim = 1.5; // times a bare window's

qint64 monotonicNow() // ns
{
    return std::chrono::steady_clock::now().time_since_epoch() / std::chrono::nanoseconds(1);
}

/// Ends the program once its window and what is in it have been painted; prints when that was and
/// how much memory was held at most.
class FirstPaint : public QObject
{
public:
    explicit FirstPaint(QWidget& window) { window.installEventFilter(this); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            watched->removeEventFilter(this);
            QTimer::singleShot(0, this, [] {
                std::printf("%lld %f\n", static_cast<long long>(monotonicNow()), peakMemory());
                QApplication::quit();
            });
        }
        return false;
    }
};

struct Start
{
    double milliseconds; ///< to the first painted window
    double mebibytes;    ///< most held until then
};

Start startOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    const qint64 started = monotonicNow();
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        throw std::runtime_error("a window did not start");
    const QList<QByteArray> figures = process.readAllStandardOutput().simplified().split(' ');
    if (figures.size() != 2)
        throw std::runtime_error("a window told no figures");
    return {static_cast<double>(figures[0].toLongLong() - started) / 1e6, figures[1].toDouble()};
}

} // namespace

int startProcess(int argc, char* argv[], const QString& device)
{
    const ProgramApplication application(argc, argv);
    WindowUnderTest test(device, kBaud,
                         {makeScreen<MainDisplay>, makeScreen<SetupScreen>,
                          makeScreen<ShiftDataScreen>, makeScreen<ColorControlScreen>,
                          makeScreen<IoStatusScreen>});
    const FirstPaint painted(test.window);
    return QApplication::exec();
}

int bareStartProcess(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    QMainWindow window;
    const FirstPaint painted(window);
    window.show();
    return QApplication::exec();
}

void startCost(const QString& program)
{
    const BoardProcess board({});
    std::vector<double> bare; // ms
    std::vector<double> times;
    std::vector<double> memory;
    for (int i = 0; i < rounds(kRounds); ++i) {
        const Start empty = startOf(program, {QStringLiteral("--bare-process")});
        const Start full = startOf(program, {QStringLiteral("--start-process"), board.device()});
        bare.push_back(empty.milliseconds);
        times.push_back(full.milliseconds / empty.milliseconds);
        memory.push_back(full.mebibytes / empty.mebibytes);
    }
    report("start to the first painted bare window", median(bare), "ms");
    reportRatios("  the program's, times that", times, kStartAim);
    reportRatios("  its most memory, times the bare window's", memory, kMemoryAim);
}

} // namespace tambrix::bench
