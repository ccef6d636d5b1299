#include "bench/benchmarks.h"
#include "bench/board_process.h"
#include "bench/figures.h"
#include "bench/program_application.h"
#include "bench/window_under_test.h"
#include "maintenance/line_monitor.h"
#include "screens/main_display.h"

#include <QApplication>
#include <QElapsedTimer>

#include <stdexcept>

namespace tambrix::bench {

namespace {

using namespace std::chrono_literals;

constexpr int kBaud = 19200;
constexpr int kRounds = 7; // each without and with
constexpr auto kSettling = 400ms;
constexpr auto kMeasuring = 1500ms;
constexpr double kShareAim = 0.97;     // of the rate with the monitor closed
constexpr double kRecorderAim = 0.001; // of the time of one exchange

/// Shows the Main Display on line, in turns without and with the monitor open.
class MonitorRounds
{
public:
    explicit MonitorRounds(const QString& device)
        : m_test(device, kBaud, {makeScreen<MainDisplay>, {}, {}, {}, {}}),
          m_loop([] { return true; })
    {
        m_test.window.goOnline();
        m_loop.start(measure());
    }

private:
    Task measure()
    {
        std::vector<double> shares;
        for (int i = 0; i < rounds(kRounds); ++i) {
            double closed = 0;
            co_await rate(closed);
            LineMonitor monitor(m_test.recorder, m_test.clock, m_test.nobody, {});
            monitor.show();
            double open = 0;
            co_await rate(open);
            shares.push_back(open / closed);
        }
        reportAtLeast("exchange rate with the line monitor open, times closed", median(shares),
                      kShareAim);
        QApplication::exit(m_test.state.gLink.OnlineMode ? 0 : 1);
    }

    Task rate(double& perSecond)
    {
        co_await m_loop.pause(span(kSettling));
        co_await m_test.exchangeRate(m_loop, kMeasuring, perSecond);
    }

    WindowUnderTest m_test;
    CooperativeLoop m_loop; // last: its frames are gone before anything that they use
};

/// What keeping one exchange costs while nobody watches.
void recorderCost()
{
    constexpr int kExchanges = 1'000'000;
    const SteadyClock clock;
    LineRecorder recorder(clock);
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < kExchanges; ++i) {
        recorder.sent(0x55);
        recorder.received(0x55);
    }
    const double cost = static_cast<double>(timer.nsecsElapsed()) / kExchanges;
    constexpr double kExchangeTime = 20e9 / kBaud; // ns
    report("recording one exchange, monitor closed", cost, "ns");
    reportAtMost("  of the wire's time for it", cost / kExchangeTime, kRecorderAim);
}

} // namespace

int monitorProcess(int argc, char* argv[])
{
    const ProgramApplication application(argc, argv);
    recorderCost();
    const BoardProcess board({QStringLiteral("--baud"), QString::number(kBaud)});
    const MonitorRounds test(board.device());
    return QApplication::exec();
}

void monitorCost(const QString& program)
{
    if (QProcess::execute(program, {QStringLiteral("--monitor-process")}) != 0)
        throw std::runtime_error("the line monitor's board did not stay on line");
}

} // namespace tambrix::bench
