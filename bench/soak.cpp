// A long day on line with a fault of the line every minute, recorded: nothing may grow or leak.
//   tambrix_soak [--hours N]     N simulated hours on a clock that only waits move (24)
//   tambrix_soak --real HOURS    the same in real time, at the wire's own pace

#include "bench/figures.h"
#include "bench/link_under_test.h"
#include "bench/window_under_test.h"
#include "recorder/history_recorder.h"
#include "screens/color_control_screen.h"
#include "screens/io_status_screen.h"
#include "screens/main_display.h"
#include "screens/setup_screen.h"
#include "screens/shift_data_screen.h"
#include "simulator/inprocess/built_in_controller.h"
#include "tests/support/line_faults.h"
#include "tests/support/virtual_clock.h"

#include <QApplication>
#include <QDir>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <malloc.h>
#include <random>
#include <unistd.h>

using namespace tambrix;
using namespace tambrix::bench;

namespace {

using namespace std::chrono_literals;

constexpr int kBaud = 9600;
constexpr auto kFaultEvery = 1min;
constexpr auto kRecordEvery = 1s;
constexpr UtcMs kMidnight = 1'798'675'200'000; // some day's, in UTC
constexpr auto kScreenEvery = 7min;            // each of the five is shown some 40 times a day
constexpr int kSamplesPerQuarter = 6;
constexpr int kSamples = 4 * kSamplesPerQuarter;
constexpr double kGrowthAim = 1.01;
constexpr std::size_t kFaultWithin = 300; // exchanges: somewhere in a pass

/// Nobody is there: every box is cancelled, and counted.
class CountingOperator : public AbsentOperator
{
public:
    BoxAnswer showMessage(const OperatorBox& /*box*/) override
    {
        ++boxes;
        return BoxAnswer::Cancel;
    }

    int boxes = 0;
};

/// What a program could have too much of.
struct Sample
{
    double memory = 0;    ///< held by the process, MiB
    double heap = 0;      ///< of it given out, MiB
    double handles = 0;   ///< open files, sockets and the like
    double exchanges = 0; ///< since the last sample
};

constexpr double kMebibyte = 1024.0 * 1024.0;

Sample sampleNow()
{
    malloc_trim(0);
    std::ifstream status("/proc/self/statm");
    double pages = 0;
    status >> pages >> pages; // the second number: resident
    const auto handles = std::filesystem::directory_iterator("/proc/self/fd");
    return {pages * static_cast<double>(sysconf(_SC_PAGESIZE)) / kMebibyte,
            static_cast<double>(mallinfo2().uordblks) / kMebibyte,
            static_cast<double>(std::distance(begin(handles), end(handles))), 0};
}

class Soak
{
public:
    Soak(Clock& clock, Duration length)
        : m_clock(clock),
          m_length(length),
          m_state(QDir(QString::fromStdString(m_folder.path().string())), m_controller.port(),
                  clock, m_nobody),
          m_window(m_state,
                   {makeScreen<MainDisplay>, makeScreen<SetupScreen>, makeScreen<ShiftDataScreen>,
                    makeScreen<ColorControlScreen>, makeScreen<IoStatusScreen>},
                   {}),
          m_loop([] { return true; })
    {
        m_window.show();
        m_loop.start(day());
    }

    int result() const { return m_result; }

private:
    Task day()
    {
        const Duration start = m_clock.now();
        Duration nextFault = start + kFaultEvery;
        Duration nextRecord = start + kRecordEvery;
        Duration nextScreen = start + kScreenEvery;
        while (static_cast<int>(m_samples.size()) < kSamples) {
            co_await m_loop.pendingEvents();
            stayOnline();
            const Duration now = m_clock.now();
            if (now >= nextFault) {
                disturb();
                nextFault = now + kFaultEvery;
            }
            if (now >= nextRecord) {
                m_recorder.flush(); // its own timer follows the real clock
                nextRecord = now + kRecordEvery;
            }
            if (now >= nextScreen) {
                m_window.showScreen(static_cast<ScreenId>(++m_screens % kScreens));
                nextScreen = now + kScreenEvery;
            }
            if (now - start >= m_length * (m_samples.size() + 1) / kSamples)
                keepSample();
        }
        tell();
        QApplication::quit();
    }

    UtcMs timeOfDay() const
    {
        return kMidnight +
               std::chrono::duration_cast<std::chrono::milliseconds>(m_clock.now()).count();
    }

    void stayOnline()
    {
        if (m_state.gLink.OnlineMode)
            return;
        ++m_losses;
        m_controller.line().plugIn();
        m_window.goOnline();
    }

    void disturb()
    {
        SimulatedLine& line = m_controller.line();
        m_exchanges += static_cast<double>(line.exchanges());
        line.clearFaults();
        line.setFault(m_random() % kFaultWithin, m_faults[m_random() % m_faults.size()].fault);
        ++m_disturbed;
    }

    void keepSample()
    {
        m_samples.push_back(sampleNow());
        m_exchanges += static_cast<double>(m_controller.line().exchanges());
        m_controller.line().clearFaults();
        m_samples.back().exchanges = std::exchange(m_exchanges, 0);
    }

    /// Mean of one quarter of the samples.
    double quarter(double Sample::*figure, std::size_t number) const
    {
        double sum = 0;
        for (std::size_t i = 0; i < kSamplesPerQuarter; ++i)
            sum += m_samples[number * kSamplesPerQuarter + i].*figure;
        return sum / kSamplesPerQuarter;
    }

    void tellGrowth(const std::string& what, double Sample::*figure, const std::string& unit)
    {
        const double first = quarter(figure, 0);
        const double last = quarter(figure, 3);
        report(what + ", first quarter", first, unit);
        reportAtMost("  last quarter, times that", last / first, kGrowthAim);
        m_result |= last / first > kGrowthAim ? 1 : 0;
    }

    void tell()
    {
        report("faults of the line", m_disturbed, "");
        report("  boxes shown and cancelled", m_nobody.boxes, "");
        report("  times off line and on again", m_losses, "");
        tellGrowth("memory", &Sample::memory, "MiB");
        tellGrowth("memory given out", &Sample::heap, "MiB");
        tellGrowth("handles", &Sample::handles, "");
        report("history", static_cast<double>(std::filesystem::file_size(m_history)) / kMebibyte,
               "MiB");
        const double drift = quarter(&Sample::exchanges, 3) / quarter(&Sample::exchanges, 0);
        report("exchanges in an hour, last quarter, times the first's", drift, "");
    }

    Clock& m_clock;
    Duration m_length;
    BenchFolder m_folder{kBaud};
    BuiltInController m_controller{m_clock};
    CountingOperator m_nobody;
    ProgramState m_state;
    const std::filesystem::path m_history = m_folder.path() / "History.sqlite";
    HistoryRecorder m_recorder{m_state.gLink,
                               QString::fromStdString(m_history.string()),
                               {m_clock, [this] { return timeOfDay(); }}};
    MainWindow m_window;
    const std::vector<NamedFault> m_faults = everyFault();
    std::minstd_rand m_random{1};
    std::vector<Sample> m_samples;
    double m_exchanges = 0; ///< since the last sample, of plans that are over
    int m_disturbed = 0;
    int m_losses = -1; // the first time on line is none
    int m_screens = 0;
    int m_result = 0;
    CooperativeLoop m_loop; // last: its frames are gone before anything that they use
};

int soak(Clock& clock, double hours)
{
    const Soak soak(clock, std::chrono::duration_cast<Duration>(
                               std::chrono::duration<double, std::ratio<3600>>(hours)));
    QApplication::exec();
    return soak.result();
}

} // namespace

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() == 3 && arguments[1] == QLatin1String("--real")) {
        SteadyClock clock;
        return soak(clock, arguments[2].toDouble());
    }
    const bool given = arguments.size() == 3 && arguments[1] == QLatin1String("--hours");
    VirtualClock clock;
    return soak(clock, given ? arguments[2].toDouble() : 24);
}
