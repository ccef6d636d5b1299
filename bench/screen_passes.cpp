#include "bench/benchmarks.h"
#include "bench/board_process.h"
#include "bench/event_loop_gap.h"
#include "bench/link_under_test.h"
#include "bench/report.h"
#include "screens/color_control_screen.h"
#include "screens/io_status_screen.h"
#include "screens/setup_screen.h"
#include "screens/shift_data_screen.h"
#include "shell/main_display.h"
#include "shell/main_window.h"

#include <QApplication>
#include <QElapsedTimer>

#include <array>
#include <stdexcept>

namespace tambrix::bench {

namespace {

using namespace std::chrono_literals;

constexpr double kBitsPerByte = 10;
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

template <typename Concrete> std::unique_ptr<Screen> make(ProgramState& state)
{
    return std::make_unique<Concrete>(state);
}

/// The window with all its screens over a real serial device; shows one after the other.
class ScreensUnderTest
{
public:
    ScreensUnderTest(const QString& device, int baud)
        : m_baud(baud),
          m_folder(baud),
          m_serial(m_clock, device),
          m_port(m_serial, m_clock),
          m_state(QDir(QString::fromStdString(m_folder.path().string())), m_port, m_clock,
                  m_operator),
          m_window(m_state,
                   {make<MainDisplay>, make<SetupScreen>, make<ShiftDataScreen>,
                    make<ColorControlScreen>, make<IoStatusScreen>},
                   {}),
          m_loop([] { return true; })
    {
        m_window.show();
        m_window.goOnline();
        m_loop.start(measure());
    }

private:
    Task measure()
    {
        for (int i = 0; i < kScreens; ++i) {
            m_window.showScreen(i);
            co_await m_loop.pause(kSettling);
            m_port.bytes.clear();
            m_gap.start();
            QElapsedTimer timer;
            timer.start();
            co_await m_loop.pause(kMeasuring);
            const double seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
            tell(kPasses.at(static_cast<std::size_t>(i)), seconds, m_gap.stop());
        }
        QApplication::exit(m_state.gLink.OnlineMode ? 0 : 1);
    }

    void tell(const ScreenUnderTest& screen, double seconds, double longest)
    {
        const auto sent = static_cast<double>(m_port.bytes.size());
        const std::string speed = std::to_string(m_baud);
        report(std::string(screen.name) + " at " + speed + ", passes",
               sent / screen.exchanges / seconds, "/s");
        reportAtLeast("  of the wire's limit", 2 * sent * kBitsPerByte / m_baud / seconds,
                      kEfficiencyAim);
        reportAtMost("  longest unserved event-loop time", longest, kGapAim, "ms");
    }

    int m_baud;
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

int screensProcess(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    for (const int baud : {9600, 19200}) {
        const BoardProcess board({QStringLiteral("--baud"), QString::number(baud)});
        const ScreensUnderTest screens(board.device(), baud);
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
