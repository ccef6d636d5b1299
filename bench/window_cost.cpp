#include "bench/benchmarks.h"
#include "bench/board_process.h"
#include "bench/event_loop_gap.h"
#include "bench/link_under_test.h"
#include "bench/report.h"
#include "shell/main_display.h"
#include "shell/main_window.h"

#include <QApplication>
#include <QTimer>

#include <chrono>
#include <stdexcept>
#include <sys/resource.h>

namespace tambrix::bench {

namespace {

using namespace std::chrono_literals;

constexpr int kBaud = 9600;
constexpr double kBitsPerByte = 10;
constexpr auto kSettling = 1s;
constexpr auto kMeasuring = 8s;

double monotonicNow()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

double processorSeconds()
{
    rusage use{};
    getrusage(RUSAGE_SELF, &use);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(use.ru_utime) + seconds(use.ru_stime);
}

/// The program's window as main() builds it, over a real serial device.
class WindowUnderTest : public QObject
{
public:
    WindowUnderTest(const QString& device, double started)
        : m_started(started),
          m_folder(kBaud),
          m_serial(m_clock, device),
          m_port(m_serial, m_clock),
          m_state(QDir(QString::fromStdString(m_folder.path().string())), m_port, m_clock,
                  m_operator),
          m_window(m_state, {[](ProgramState& s) { return std::make_unique<MainDisplay>(s); }}, {}),
          m_loop([] { return true; })
    {
        m_window.installEventFilter(this);
        m_window.show();
        m_loop.start(measure());
    }

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && m_firstPaint == 0)
            QTimer::singleShot(0, this, [this] { notePainted(); }); // once its children are, too
        return false;
    }

private:
    void notePainted()
    {
        if (m_firstPaint == 0)
            m_firstPaint = monotonicNow() - m_started;
    }

    Task measure()
    {
        co_await m_loop.pause(kSettling);
        report("start to first painted window", m_firstPaint * 1000, "ms");
        co_await processorUse("processor use off line, of one core", 1);
        m_window.goOnline();
        if (!m_state.gLink.OnlineMode) {
            QApplication::exit(1);
            co_return;
        }
        co_await processorUse("processor use on line at 9600, Main Display, of one core", 5);
        co_await longestGap();
        report("peak memory", peakMemory(), "MiB");
        QApplication::exit(m_state.gLink.OnlineMode ? 0 : 1);
    }

    Task processorUse(std::string what, double aim)
    {
        co_await m_loop.pause(kSettling);
        const double wallStart = monotonicNow();
        const double start = processorSeconds();
        m_port.bytes.clear();
        co_await m_loop.pause(kMeasuring);
        const double wall = monotonicNow() - wallStart;
        reportAtMost(what, (processorSeconds() - start) / wall * 100, aim, "%");
        if (m_state.gLink.OnlineMode)
            report("  meanwhile, share of the wire in use",
                   2 * static_cast<double>(m_port.bytes.size()) * kBitsPerByte / kBaud / wall, "");
    }

    Task longestGap()
    {
        m_gap.start();
        co_await m_loop.pause(kMeasuring);
        report("longest unserved event-loop time on line", m_gap.stop(), "ms");
    }

    double m_started;
    double m_firstPaint = 0;
    BenchFolder m_folder;
    SteadyClock m_clock;
    QtSerialPort m_serial;
    RecordingPort m_port;
    AbsentOperator m_operator;
    ProgramState m_state;
    MainWindow m_window;
    EventLoopGap m_gap;
    CooperativeLoop m_loop; // last: its frames are gone before anything that they use
};

} // namespace

int windowProcess(int argc, char* argv[], const QString& device, qint64 started)
{
    const QApplication application(argc, argv);
    const WindowUnderTest window(device, static_cast<double>(started) / 1e9);
    return QApplication::exec();
}

void windowCost(const QString& program)
{
    const BoardProcess board({QStringLiteral("--baud"), QString::number(kBaud)});
    const auto started = static_cast<qint64>(monotonicNow() * 1e9);
    const QStringList arguments = {QStringLiteral("--window-process"), board.device(),
                                   QString::number(started)};
    if (QProcess::execute(program, arguments) != 0)
        throw std::runtime_error("the window did not stay on line");
}

} // namespace tambrix::bench
