#include "bench/benchmarks.h"
#include "bench/board_process.h"
#include "bench/figures.h"
#include "bench/program_application.h"
#include "bench/window_under_test.h"
#include "history/history_plots.h"
#include "recorder/recorded_registers.h"
#include "recorder/unseen_reader.h"
#include "screens/main_display.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <array>
#include <optional>
#include <stdexcept>

namespace tambrix::bench {

namespace {

using namespace std::chrono_literals;

constexpr int kBaud = 9600;
constexpr int kRounds = 5;
constexpr auto kSettling = 500ms;
constexpr auto kMeasuring = 6s;
constexpr double kRecordingAim = 0.99; // of the exchange rate without it
constexpr double kMonthAim = 3;        // times a day's
constexpr int kMonthDays = 30;
constexpr int kWidth = 1000; // px

struct Rates
{
    double passes = 0;    ///< of the Main Display, a second
    double exchanges = 0; ///< a second
};

/// Shows the Main Display on line: alone, recorded, and recorded with what is not shown.
class RecordingRounds
{
public:
    explicit RecordingRounds(const QString& device)
        : m_test(device, kBaud, {makeScreen<MainDisplay>, {}, {}, {}, {}}),
          m_loop([] { return true; })
    {
        m_test.window.goOnline();
        m_loop.start(measure());
    }

private:
    Task measure()
    {
        std::vector<double> recorded;
        std::vector<double> passes;
        std::vector<double> exchanges;
        for (int i = 0; i < rounds(kRounds); ++i) {
            const QTemporaryDir folder;
            Rates alone;
            co_await rate(alone);
            RSComm& link = m_test.state.gLink;
            HistoryRecorder recorder(link, folder.filePath("history.db"), {m_test.clock});
            Rates with;
            co_await rate(with);
            UnseenReader unseen(link, recorder, [&link] { return !link.isBusy(); });
            unseen.setInterval(UnseenReader::kShortest);
            Rates all;
            co_await rate(all);
            recorded.push_back(with.exchanges / alone.exchanges);
            passes.push_back(all.passes / with.passes);
            exchanges.push_back(all.exchanges / with.exchanges);
        }
        reportAtLeast("exchange rate while recording, times without", median(recorded),
                      kRecordingAim);
        report("passes with what is not shown, every 5 s, times without", median(passes), "");
        reportAtLeast("  exchange rate then, times without", median(exchanges), kRecordingAim);
        QApplication::exit(m_test.state.gLink.OnlineMode ? 0 : 1);
    }

    Task rate(Rates& rates)
    {
        co_await m_loop.pause(span(kSettling));
        const PassCount count(m_test.state.gLink);
        co_await m_test.exchangeRate(m_loop, kMeasuring, rates.exchanges);
        rates.passes = count.passes * 1s / span(kMeasuring);
    }

    /// Counts the passes by the machine speed, which each of them reads once.
    struct PassCount : LinkObserver
    {
        explicit PassCount(RSComm& watched) : link(watched) { link.addObserver(*this); }
        ~PassCount() override { link.removeObserver(*this); }
        void registerRead(std::string_view addr, std::string_view /*value*/, bool /*ok*/) override
        {
            passes += addr == reg::kMachineSpeed.address ? 1 : 0;
        }

        RSComm& link;
        double passes = 0;
    };

    WindowUnderTest m_test;
    CooperativeLoop m_loop; // last: its frames are gone before anything that they use
};

/// A month on line: the speed wanders every second, counts come every ten, an alarm every hour.
void recordMonth(const QString& file)
{
    HistoryStore store(file, [](const QString&) {});
    HistoryBatch batch;
    const auto second = [&](UtcMs time) {
        const int speed = 1200 + static_cast<int>(time / kSecond % 6);
        for (std::size_t bin = 0; bin < kSpeedBins.size(); ++bin) {
            if (time % kSpeedBins[bin] == 0)
                batch.speed[bin].push_back({time, SpeedRange{speed - 2, speed + 2, speed}});
        }
        if (time % (10 * kSecond) == 0) {
            batch.counts.push_back({time, {}});
            batch.counts.back().counts.fill(time / kSecond);
        }
        if (time % (kHour / 2) == 0)
            batch.values.push_back(
                {time, recordedAddress(reg::kAlarms.address), time % kHour == 0 ? 4 : 0});
    };
    for (UtcMs time = 0; time < kMonthDays * kDay; time += kSecond) {
        second(time);
        if (time % kHour != 0)
            continue;
        batch.end = time;
        store.append(batch);
        batch = {};
    }
}

/// Opening the last `days` and panning back by a fifth of them, ms.
double openAndPan(const QString& file, HistoryPlots& plots, int days)
{
    QElapsedTimer timer;
    timer.start();
    TimeSpan span{(kMonthDays - days) * kDay, kMonthDays * kDay};
    for (int step = 0; step < 2; ++step) {
        HistoryReader reader(file);
        plots.show(readPlotData(reader, span, 2, kWidth));
        plots.grab();
        span = {span.begin - span.length() / 5, span.end - span.length() / 5};
    }
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

void monthAgainstDay()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("history.db");
    recordMonth(file);
    HistoryPlots plots;
    plots.resize(kWidth, 400);
    std::vector<double> day;
    std::vector<double> month;
    for (int i = 0; i < rounds(kRounds); ++i) {
        day.push_back(openAndPan(file, plots, 1));
        month.push_back(openAndPan(file, plots, kMonthDays));
    }
    report("history of a day, opened and panned", median(day), "ms");
    report("  of 30 days", median(month), "ms");
    reportAtMost("  times a day's", median(month) / median(day), kMonthAim);
}

} // namespace

int historyProcess(int argc, char* argv[])
{
    const ProgramApplication application(argc, argv);
    monthAgainstDay();
    const BoardProcess board({QStringLiteral("--baud"), QString::number(kBaud)});
    const RecordingRounds test(board.device());
    return QApplication::exec();
}

void historyCost(const QString& program)
{
    if (QProcess::execute(program, {QStringLiteral("--history-process")}) != 0)
        throw std::runtime_error("the recorded board did not stay on line");
}

} // namespace tambrix::bench
