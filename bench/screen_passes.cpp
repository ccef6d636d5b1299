#include "bench/benchmarks.h"
#include "bench/board_process.h"
#include "bench/event_loop_gap.h"
#include "bench/figures.h"
#include "bench/plain_rounds.h"
#include "bench/program_application.h"
#include "bench/window_under_test.h"
#include "screens/color_control_screen.h"
#include "screens/io_status_screen.h"
#include "screens/main_display.h"
#include "screens/setup_screen.h"
#include "screens/shift_data_screen.h"

#include <QApplication>

#include <array>
#include <stdexcept>

namespace tambrix::bench {

namespace {

using namespace std::chrono_literals;

constexpr double kGapAim = 35; // ms
constexpr auto kSettling = 700ms;
constexpr auto kMeasuring = 400ms;
constexpr auto kGapMeasuring = 3s; // by itself: its timer takes time from every turn
constexpr int kRounds = 15;

// In Window-menu order.
constexpr std::array kScreenNames = {"Main Display", "Set-up Parameters", "Shift Data",
                                     "Color Control", "I/O States"};

/// Shows one screen after the other, on line, and lets a plain loop repeat what it reads.
class ScreenPasses
{
public:
    ScreenPasses(const QString& device, int baud)
        : m_device(device),
          m_baud(baud),
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
        for (std::size_t i = 0; i < kScreenNames.size(); ++i) {
            m_test.window.showScreen(static_cast<ScreenId>(i));
            co_await m_loop.pause(kSettling);
            co_await screenRounds(kScreenNames.at(i));
        }
        QApplication::exit(m_test.state.gLink.OnlineMode ? 0 : 1);
    }

    /// The screen stands between two registers whenever a turn of this loop runs.
    Task screenRounds(std::string name)
    {
        PlainRounds against(m_device, m_test.port, m_baud);
        for (int i = 0; i < rounds(kRounds); ++i) {
            co_await m_loop.pause(kCatchingUp);
            against.begin();
            co_await m_loop.pause(kMeasuring);
            against.end();
        }
        against.tell(name + " at " + std::to_string(m_baud));
        m_gap.start();
        co_await m_loop.pause(span(kGapMeasuring));
        reportAtMost("  longest unserved event-loop time", m_gap.stop(), kGapAim, "ms");
    }

    QString m_device;
    int m_baud;
    WindowUnderTest m_test;
    EventLoopGap m_gap;
    CooperativeLoop m_loop; // last: its frames are gone before anything that they use
};

} // namespace

int screensProcess(int argc, char* argv[])
{
    const ProgramApplication application(argc, argv);
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
