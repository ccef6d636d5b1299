#include "simulator/pty/board_server.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <iostream>
#include <poll.h>
#ifdef __linux__
#include <sys/prctl.h>
#endif

namespace tambrix {

namespace {

using std::chrono::microseconds;

// The kernel may wake a sleeper this late; the remainder up to a reply's due time is spun away.
constexpr SimTime kSleepMargin = microseconds(250);
// While a transfer runs, the PC's next byte follows the reply within this time. Spinning for it
// makes its arrival exact.
constexpr SimTime kNextRequestWait = microseconds(200);
// An idle board wakes this often to keep the press in step.
constexpr SimTime kHousekeeping = std::chrono::seconds(1);

SimTime sinceStart()
{
    static const auto kStart = std::chrono::steady_clock::now();
    return std::chrono::steady_clock::now() - kStart;
}

timespec toTimespec(SimTime span)
{
    constexpr std::int64_t kSecond = 1'000'000'000;
    timespec result{};
    result.tv_sec = static_cast<time_t>(span.count() / kSecond);
    result.tv_nsec = static_cast<long>(span.count() % kSecond);
    return result;
}

// By default Linux lets a sleep run 50 microseconds over, to save wake-ups.
void askForPreciseSleeps()
{
#ifdef __linux__
    constexpr unsigned long kSlackNs = 1;
    prctl(PR_SET_TIMERSLACK, kSlackNs, 0UL, 0UL, 0UL);
#endif
}

void printByte(const WireByte& wire)
{
    const char direction = wire.direction == WireByte::Direction::ToBoard ? '>' : '<';
    std::fprintf(stderr, "%12.6f %c %02X\n", std::chrono::duration<double>(wire.time).count(),
                 direction, unsigned{wire.byte});
}

} // namespace

BoardServer::BoardServer(const Options& options)
    : m_board(sinceStart()),
      m_line(m_board, options.unpaced ? 0 : options.baud),
      m_link(options.link)
{
    PressModel& press = m_board.press();
    if (options.manual)
        press.setOperationalMode(PressModel::OperationalMode::Manual);
    m_board.program().garbledRecord = options.garbleRecord;
    if (options.faultDuctor)
        press.setDuctorAnswers(*options.faultDuctor, false);
    press.setLabelSelect(options.labelSelect);
    if (options.trace)
        m_line.setTap(printByte);
    plan(options);
}

void BoardServer::plan(const Options& options)
{
    if (options.alarmAfter)
        m_events.push_back({*options.alarmAfter, [this] { m_board.press().raiseAlarm(0); }});
    if (options.unplugAfter)
        m_events.push_back({*options.unplugAfter, [this] { unplug(); }});
    if (options.unplugAfter && options.replugAfter)
        m_events.push_back({*options.unplugAfter + *options.replugAfter, [this] { plug(); }});
    std::stable_sort(m_events.begin(), m_events.end(),
                     [](const Event& a, const Event& b) { return a.due > b.due; });
}

void BoardServer::run(const volatile std::sig_atomic_t& stop)
{
    askForPreciseSleeps();
    plug();
    while (stop == 0) {
        actOnEvents();
        takeRequests();
        giveReplies();
        rest();
    }
}

void BoardServer::plug()
{
    m_terminal = std::make_unique<PseudoTerminal>();
    m_link.pointTo(m_terminal->path());
    m_line.plugIn();
    std::cout << m_terminal->path() << std::endl;
}

void BoardServer::unplug()
{
    m_link.remove();
    m_line.unplug();
    m_terminal.reset();
}

void BoardServer::actOnEvents()
{
    while (!m_events.empty() && m_events.back().due <= sinceStart()) {
        const Event event = std::move(m_events.back());
        m_events.pop_back();
        event.act();
    }
}

void BoardServer::takeRequests()
{
    std::array<std::uint8_t, 256> buffer{};
    const std::size_t count = m_terminal ? m_terminal->read(buffer) : 0;
    const SimTime now = sinceStart();
    for (std::size_t i = 0; i < count; ++i)
        m_line.send(buffer[i], now);
    m_board.advanceTo(now);
}

void BoardServer::giveReplies()
{
    for (SimTime now = sinceStart(); m_line.available(now) > 0; now = sinceStart()) {
        m_terminal->write(m_line.take(now));
        m_lastReply = now;
    }
}

// Sleeps as long as nothing has to be done on time; returns at once where spinning is due.
void BoardServer::rest() const
{
    const SimTime span = restEnd() - sinceStart();
    if (span <= SimTime::zero())
        return;
    pollfd input{m_terminal ? m_terminal->descriptor() : -1, POLLIN, 0};
    const timespec limit = toTimespec(span);
    // A signal that comes just before this call is seen after one housekeeping time.
    ppoll(&input, 1, &limit, nullptr);
}

SimTime BoardServer::restEnd() const
{
    if (const std::optional<SimTime> reply = m_line.nextArrival())
        return *reply - kSleepMargin;
    const SimTime now = sinceStart();
    if (now < m_lastReply + kNextRequestWait)
        return now;
    const SimTime nextEvent = m_events.empty() ? SimTime::max() : m_events.back().due;
    return std::min(nextEvent, now + kHousekeeping);
}

} // namespace tambrix
