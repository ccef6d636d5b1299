#include "link/byte_exchange.h"

#include <algorithm>

namespace tambrix {

using namespace std::chrono_literals;

namespace {

constexpr Duration kFirstReplyWait = 1s;
constexpr Duration kLaterReplyWait = 2s;
constexpr int kTriesBeforeAsking = 3;
constexpr Duration kModeWait = 2s;

/// After an answer that does not fit, whatever is still under way on the line (a late byte, one
/// that came twice) must have arrived and be dropped. Longer than a USB adapter's latency timer.
constexpr Duration kLineQuiet = 50ms;
/// After a broken frame the board may still wait for the frame's other half and would take 0xFF
/// as an address or, worse, store it. This long a gap makes it drop the half frame. It is the
/// same after attention that broke a wait: it may have fallen into a frame, and the first answer
/// may still come.
constexpr Duration kHalfFrameQuiet = 600ms;
constexpr Duration kSettleLimit = 2s;
/// How long a wait may leave pending events unserved.
constexpr Duration kEventInterval = 20ms;

constexpr const char* kWarningTitle = "WARNING - Communication Error!";
constexpr const char* kCannotCommunicate = "Cannot Communicate with Target Board.\r"
                                           "Verify RS-232 Cable is Connected Between\r"
                                           "COMM Port and PROG Port.";
constexpr const char* kCannotSetMode = "Cannot Set PLC Mode Within Target Board.";

/// Whether a board that has taken the mode's command stands inside a frame at once: there attention
/// would be data.
bool startsInsideFrame(LinkMode mode)
{
    return mode == LinkMode::SwitchChannel || mode == LinkMode::SwitchValue ||
           mode == LinkMode::SwitchBlock || mode == LinkMode::SwitchRecall;
}

} // namespace

ByteExchange::ByteExchange(LinkFlags& flags, Clock& clock, Operator& person,
                           LinkObservers& observers)
    : m_flags(flags), m_clock(clock), m_operator(person), m_observers(observers)
{
}

void ByteExchange::usePort(SerialPort& port)
{
    m_port = &port;
}

int ByteExchange::ExchangeByte(std::uint8_t byte, const ByteMeaning& meaning, Await await,
                               Waiting waiting)
{
    if (m_flags.CommError)
        return kNoReply;
    if (!isPortOpen()) {
        forgetMode();
        m_flags.CommError = true;
        return kNoReply;
    }
    settle();
    if (waiting == Waiting::Discard)
        m_port->discardInput();
    m_resends.clear();
    m_port->writeByte(byte);
    m_flags.CommErrorAlert = false;
    const Duration start = m_clock.now();
    const bool due = await == Await::Reply;
    const int reply = due ? awaitReply(start) : kNoReply;
    m_lastWait = m_clock.now() - start;
    if (!m_observers.empty())
        report(byte, start, reply, meaning, due ? faultOf(reply, meaning) : ExchangeFault::None);
    return due ? reply : 0;
}

ExchangeFault ByteExchange::faultOf(int reply, const ByteMeaning& meaning) const
{
    if (reply == kNoReply)
        return ExchangeFault::NoAnswer;
    if (resent())
        return ExchangeFault::Resent;
    return meaning.expected && *meaning.expected != reply ? ExchangeFault::WrongAnswer
                                                          : ExchangeFault::None;
}

void ByteExchange::report(std::optional<std::uint8_t> sent, Duration start, int reply,
                          const ByteMeaning& meaning, ExchangeFault fault)
{
    ExchangeReport report{start, m_lastWait, sent, {}, meaning, fault, m_resends};
    if (reply != kNoReply)
        report.reply = static_cast<std::uint8_t>(reply);
    m_observers.tell(&LinkObserver::exchangeDone, report);
}

// kept: what is sent again is attention, not the byte: the board may be anywhere, and attention is
// what it answers from everywhere.
int ByteExchange::awaitReply(Duration sentAt)
{
    Duration deadline = sentAt + kFirstReplyWait;
    int tries = 0;
    while (!inputBefore(deadline)) {
        forgetMode();
        m_flags.CommError = true;
        m_flags.CommErrorAlert = true;
        deadline = m_clock.now() + kLaterReplyWait;
        if (++tries < kTriesBeforeAsking) {
            m_flags.CommError = false;
            m_port->discardInput();
            m_port->writeByte(kAttention);
            m_resends.push_back(m_clock.now());
            outOfStep(kHalfFrameQuiet);
        } else if (retryWanted(kCannotCommunicate)) {
            // kept: nothing is sent before the wait is over, and CommError stays until then.
            tries = 0;
        } else {
            return kNoReply;
        }
    }
    m_flags.CommErrorAlert = false;
    return m_port->readByte();
}

bool ByteExchange::inputBefore(Duration deadline)
{
    for (Duration left = deadline - m_clock.now(); left > Duration::zero();
         left = deadline - m_clock.now()) {
        if (m_port->waitForInput(left))
            return true;
    }
    return m_port->bytesWaiting() > 0;
}

int ByteExchange::callAttention(Waiting waiting)
{
    forgetMode();
    return ExchangeByte(kAttention, {ByteUse::Attention, LinkMode::None, -1, kAcknowledge},
                        Await::Reply, waiting);
}

bool ByteExchange::EnterLinkMode(LinkMode mode, std::uint8_t commandByte)
{
    forgetMode();
    settle();
    Duration deadline = m_clock.now() + kModeWait;
    m_enteredAtOnce = tryToEnter(mode, commandByte);
    while (m_mode != mode && !m_flags.CommError) {
        if (m_clock.now() >= deadline) {
            if (!retryWanted(kCannotSetMode)) {
                giveUp();
                return false;
            }
            deadline = m_clock.now() + kModeWait;
        }
        tryToEnter(mode, commandByte);
    }
    return m_mode == mode;
}

/// Calls attention and asks for `mode` once. Returns whether the board took it without a resend;
/// whether it is in the mode is what mode() says.
bool ByteExchange::tryToEnter(LinkMode mode, std::uint8_t commandByte)
{
    const bool attentive = callAttention(Waiting::Discard) == kAcknowledge;
    const bool atOnce = !resent();
    const ByteMeaning command{ByteUse::ModeCommand, mode, -1, kAcknowledge};
    if (attentive &&
        ExchangeByte(commandByte, command, Await::Reply, Waiting::Keep) == kAcknowledge &&
        !resent()) {
        m_mode = mode;
        return atOnce;
    }
    outOfStep(startsInsideFrame(mode) ? kHalfFrameQuiet : kLineQuiet);
    return false;
}

/// The operator has had enough of a board that does not take a mode.
void ByteExchange::giveUp()
{
    m_flags.CommError = true;
    m_flags.OnlineMode = false;
    closePort();
}

int ByteExchange::exchangeInFrame(std::uint8_t byte, ByteMeaning meaning)
{
    meaning.mode = m_mode;
    const int reply = ExchangeByte(byte, meaning);
    return resent() ? kNoReply : reply;
}

bool ByteExchange::echoes(std::uint8_t byte, ByteMeaning meaning)
{
    meaning.expected = byte;
    if (exchangeInFrame(byte, meaning) == byte)
        return true;
    if (resent())
        forgetMode();
    else
        abandonFrame();
    return false;
}

void ByteExchange::abandonFrame()
{
    forgetMode();
    outOfStep(kHalfFrameQuiet);
}

int ByteExchange::awaitByte(const ByteMeaning& meaning, Duration limit,
                            const PendingEvents& pendingEvents)
{
    if (m_flags.CommError || !isPortOpen())
        return kNoReply;
    m_resends.clear();
    const Duration start = m_clock.now();
    const int reply = inputOrEvents(start + limit, pendingEvents);
    m_lastWait = m_clock.now() - start;
    if (!m_observers.empty())
        report(std::nullopt, start, reply, meaning, faultOf(reply, meaning));
    return reply;
}

int ByteExchange::inputOrEvents(Duration deadline, const PendingEvents& pendingEvents)
{
    while (!inputBefore(std::min(m_clock.now() + kEventInterval, deadline))) {
        if (m_clock.now() >= deadline)
            return kNoReply;
        if (pendingEvents)
            pendingEvents();
    }
    return m_port->readByte();
}

void ByteExchange::closePort()
{
    if (isPortOpen()) {
        m_port->close();
        m_observers.tell(&LinkObserver::linkClosed);
    }
    forgetMode();
}

void ByteExchange::rest()
{
    if (isPortOpen())
        m_port->rest();
}

void ByteExchange::portOpened()
{
    m_port->discardInput();
    forgetMode();
    m_flags.CommError = false;
}

bool ByteExchange::retryWanted(const char* text)
{
    return m_operator.showMessage({BoxIcon::Critical, BoxButtons::RetryCancel, kWarningTitle,
                                   text}) == BoxAnswer::Retry;
}

void ByteExchange::outOfStep(Duration quiet)
{
    m_quietNeeded = std::max(m_quietNeeded, quiet);
}

void ByteExchange::settle()
{
    if (m_quietNeeded == Duration::zero() || m_flags.CommError || !isPortOpen())
        return;
    const Duration limit = m_clock.now() + kSettleLimit;
    while (m_port->waitForInput(m_quietNeeded) && m_clock.now() < limit)
        m_port->discardInput();
    m_quietNeeded = Duration::zero();
}

} // namespace tambrix
