#include "bench/benchmarks.h"
#include "bench/board_process.h"
#include "bench/event_loop_gap.h"
#include "bench/figures.h"
#include "bench/plain_rounds.h"
#include "bench/program_application.h"
#include "bench/window_under_test.h"
#include "screens/main_display.h"
#include "simulator/pty/pseudo_terminal.h"

#include <QApplication>

#include <chrono>
#include <fcntl.h>
#include <stdexcept>
#include <sys/resource.h>
#include <vector>

namespace tambrix::bench {

namespace {

using namespace std::chrono_literals;

constexpr int kBaud = 9600;
constexpr auto kSettling = 1s;
constexpr auto kMeasuring = 8s;
constexpr auto kRound = 1s;
constexpr int kRounds = 15;

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

/// The time on the clock and on the processor from here on.
class ProcessorWatch
{
public:
    double wall() const { return monotonicNow() - m_wall; } ///< s
    double percent() const { return (processorSeconds() - m_processor) / wall() * 100; }

private:
    double m_wall = monotonicNow();
    double m_processor = processorSeconds();
};

/// What the window costs while nobody touches it: off line, then on line.
class WindowCost : public QObject
{
public:
    explicit WindowCost(const QString& device)
        : m_device(device),
          m_test(device, kBaud, {makeScreen<MainDisplay>}),
          m_loop([] { return true; })
    {
        m_loop.start(measure());
    }

private:
    Task measure()
    {
        co_await m_loop.pause(kSettling);
        co_await offlineUse();
        m_test.window.goOnline();
        if (!m_test.state.gLink.OnlineMode) {
            QApplication::exit(1);
            co_return;
        }
        co_await m_loop.pause(kSettling);
        co_await onlineUse();
        co_await longestGap();
        report("peak memory", peakMemory(), "MiB");
        QApplication::exit(m_test.state.gLink.OnlineMode ? 0 : 1);
    }

    Task offlineUse()
    {
        const ProcessorWatch watch;
        co_await m_loop.pause(span(kMeasuring));
        reportAtMost("processor use off line, of one core", watch.percent(), 0.5, "%");
    }

    /// Each round is followed by the same exchanges from a plain loop: what the machine takes for
    /// them and nothing else.
    Task onlineUse()
    {
        const Descriptor device(open(m_device.toLocal8Bit(), O_RDWR | O_NOCTTY));
        std::vector<double> program;
        std::vector<double> plain;
        std::vector<double> shares;
        for (int i = 0; i < rounds(kRounds); ++i) {
            co_await m_loop.pause(kCatchingUp);
            m_test.port.bytes.clear();
            const ProcessorWatch watch;
            co_await m_loop.pause(span(kRound));
            shares.push_back(m_test.bitsOnWire() / kBaud / watch.wall());
            program.push_back(watch.percent());
            const ProcessorWatch plainWatch;
            plainExchanges(device.value(), m_test.port.bytes);
            plain.push_back(plainWatch.percent());
        }
        reportAtMost("processor use on line at 9600, Main Display, of one core", median(program), 3,
                     "%");
        reportSpread(program);
        report("  a plain write, poll and read loop of the same bytes", median(plain), "%");
        reportSpread(plain);
        report("  meanwhile, share of the wire in use", median(shares), "");
    }

    Task longestGap()
    {
        m_gap.start();
        co_await m_loop.pause(span(kMeasuring));
        report("longest unserved event-loop time on line", m_gap.stop(), "ms");
    }

    QString m_device;
    WindowUnderTest m_test;
    EventLoopGap m_gap;
    CooperativeLoop m_loop; // last: its frames are gone before anything that they use
};

} // namespace

int windowProcess(int argc, char* argv[], const QString& device)
{
    const ProgramApplication application(argc, argv);
    const WindowCost cost(device);
    return QApplication::exec();
}

void windowCost(const QString& program)
{
    const BoardProcess board({QStringLiteral("--baud"), QString::number(kBaud)});
    if (QProcess::execute(program, {QStringLiteral("--window-process"), board.device()}) != 0)
        throw std::runtime_error("the window did not stay on line");
}

} // namespace tambrix::bench
