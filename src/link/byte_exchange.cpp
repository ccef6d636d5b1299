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
/// After a broken register frame the board may still wait for the frame's other half and would
/// take 0xFF as an address or, worse, store it. This long a gap makes it drop the half frame.
constexpr Duration kHalfFrameQuiet = 600ms;
constexpr Duration kSettleLimit = 2s;
/// How long a wait may leave pending events unserved.
constexpr Duration kEventInterval = 20ms;

constexpr const char* kWarningTitle = "WARNING - Communication Error!";
constexpr const char* kCannotCommunicate = "Cannot Communicate with Target Board.\r"
                                           "Verify RS-232 Cable is Connected Between\r"
                                           "COMM Port and PROG Port.";
constexpr const char* kCannotSetMode = "Cannot Set PLC Mode Within Target Board.";

} // namespace

ByteExchange::ByteExchange(LinkFlags& flags, Clock& clock, Operator& person)
    : m_flags(flags), m_clock(clock), m_operator(person)
{
}

void ByteExchange::usePort(SerialPort& port)
{
    m_port = &port;
}

int ByteExchange::ExchangeByte(std::uint8_t byte, Await await, Waiting waiting)
{
    if (m_flags.CommError)
        return kNoReply;
    if (!isPortOpen()) {
        forgetMode();
        m_flags.CommError = true;
        return kNoReply;
    }
    if (waiting == Waiting::Discard)
        m_port->discardInput();
    m_attentionResent = false;
    m_port->writeByte(byte);
    m_flags.CommErrorAlert = false;
    return await == Await::Nothing ? 0 : awaitReply();
}

int ByteExchange::awaitReply()
{
    Duration deadline = m_clock.now() + kFirstReplyWait;
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
            m_attentionResent = true;
            outOfStep(kLineQuiet);
        } else if (retryWanted(kCannotCommunicate)) {
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
    while (m_port->bytesWaiting() == 0) {
        const Duration left = deadline - m_clock.now();
        if (left <= Duration::zero())
            return false;
        m_port->waitForInput(left);
    }
    return true;
}

int ByteExchange::callAttention(Waiting waiting)
{
    settle();
    forgetMode();
    return ExchangeByte(kAttention, Await::Reply, waiting);
}

bool ByteExchange::EnterLinkMode(LinkMode mode, std::uint8_t commandByte)
{
    forgetMode();
    settle();
    Duration deadline = m_clock.now() + kModeWait;
    while (m_mode != mode) {
        if (m_clock.now() >= deadline) {
            if (!retryWanted(kCannotSetMode)) {
                m_flags.CommError = true;
                m_flags.OnlineMode = false;
                closePort();
                return false;
            }
            deadline = m_clock.now() + kModeWait;
        }
        if (callAttention(Waiting::Discard) == kAcknowledge && acknowledgesCommand(commandByte))
            m_mode = mode;
        else if (m_flags.CommError)
            return false;
        else
            outOfStep(kLineQuiet);
    }
    return true;
}

bool ByteExchange::acknowledgesCommand(std::uint8_t commandByte)
{
    const int reply = ExchangeByte(commandByte, Await::Reply, Waiting::Keep);
    return reply == kAcknowledge && !m_attentionResent;
}

int ByteExchange::exchangeInFrame(std::uint8_t byte)
{
    const int reply = ExchangeByte(byte);
    return m_attentionResent ? kNoReply : reply;
}

bool ByteExchange::echoes(std::uint8_t byte)
{
    if (exchangeInFrame(byte) == byte)
        return true;
    if (m_attentionResent)
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

int ByteExchange::awaitByte(Duration limit, const PendingEvents& pendingEvents)
{
    if (m_flags.CommError || !isPortOpen())
        return kNoReply;
    const Duration deadline = m_clock.now() + limit;
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
    if (isPortOpen())
        m_port->close();
    forgetMode();
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
