#include "bench/benchmarks.h"
#include "bench/board_process.h"
#include "bench/event_loop_gap.h"
#include "bench/figures.h"
#include "bench/window_under_test.h"
#include "screens/color_control_screen.h"
#include "screens/io_status_screen.h"
#include "screens/main_display.h"
#include "screens/setup_screen.h"
#include "screens/shift_data_screen.h"

#include <QApplication>
#include <QElapsedTimer>

#include <array>
#include <stdexcept>

namespace tambrix::bench {

namespace {

using namespace std::chrono_literals;

constexpr double kEfficiencyAim = 0.95;
constexpr double kGapAim = 50; // ms
constexpr auto kSettling = 700ms;
constexpr auto kMeasuring = 4s;

struct ScreenUnderTest
{
    const char* name;
    int exchanges; ///< of one pass that stays in read mode
};

// In Window-menu order.
constexpr std::array kPasses = {
    ScreenUnderTest{"Main Display", 4}, ScreenUnderTest{"Set-up Parameters", 12},
    ScreenUnderTest{"Shift Data", 64},  ScreenUnderTest{"Color Control", 66},
    ScreenUnderTest{"I/O States", 48},
};

/// Shows one screen after the other, on line.
class ScreenPasses
{
public:
    ScreenPasses(const QString& device, int baud)
        : m_baud(baud),
          m_test(device, baud,
                 {makeScreen<MainDisplay>, makeScreen<SetupScreen>, makeScreen<ShiftDataScreen>,
                  makeScreen<ColorControlScreen>, makeScreen<IoStatusScreen>}),
          m_loop([] { return true; })
    {
        m_test.window.goOnline();
        m_loop.start(measure());
    }

private:
    Task measure()
    {
        for (int i = 0; i < kScreens; ++i) {
            m_test.window.showScreen(static_cast<ScreenId>(i));
            co_await m_loop.pause(kSettling);
            m_test.port.bytes.clear();
            m_gap.start();
            QElapsedTimer timer;
            timer.start();
            co_await m_loop.pause(span(kMeasuring));
            const double seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
            tell(kPasses.at(static_cast<std::size_t>(i)), seconds, m_gap.stop());
        }
        QApplication::exit(m_test.state.gLink.OnlineMode ? 0 : 1);
    }

    void tell(const ScreenUnderTest& screen, double seconds, double longest)
    {
        const auto sent = static_cast<double>(m_test.port.bytes.size());
        const std::string speed = std::to_string(m_baud);
        report(std::string(screen.name) + " at " + speed + ", passes",
               sent / screen.exchanges / seconds, "/s");
        reportAtLeast("  of the wire's limit", m_test.bitsOnWire() / m_baud / seconds,
                      kEfficiencyAim);
        reportAtMost("  longest unserved event-loop time", longest, kGapAim, "ms");
    }

    int m_baud;
    WindowUnderTest m_test;
    EventLoopGap m_gap;
    CooperativeLoop m_loop; // last: its frames are gone before anything that they use
};

} // namespace

int screensProcess(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    for (const int baud : {9600, 19200}) {
        const BoardProcess board({QStringLiteral("--baud"), QString::number(baud)});
        const ScreenPasses passes(board.device(), baud);
        if (QApplication::exec() != 0)
            return 1;
    }
    return 0;
}

void screenPasses(const QString& program)
{
    if (QProcess::execute(program, {QStringLiteral("--screens-process")}) != 0)
        throw std::runtime_error("the screens did not stay on line");
}

} // namespace tambrix::bench
