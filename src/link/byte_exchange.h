#pragma once

#include "link/clock.h"
#include "link/link_observers.h"
#include "link/link_state.h"
#include "link/operator.h"
#include "link/serial_port.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace tambrix {

/// Lets the window system serve what is pending while the link waits; may be empty. Nothing that
/// is called back may use the link.
using PendingEvents = std::function<void()>;

/// What `ExchangeByte` returns when the board gave no answer.
inline constexpr int kNoReply = 9999;
/// The board's answer to attention and to every mode command it takes.
inline constexpr int kAcknowledge = 0x55;
/// Attention: the board leaves whatever mode it is in and answers `kAcknowledge`.
inline constexpr std::uint8_t kAttention = 0xFF;

enum class Await { Reply, Nothing };
enum class Waiting { Keep, Discard };

/// The bottom layer of the link: one byte out, one byte back, and the board's modes.
class ByteExchange
{
public:
    ByteExchange(LinkFlags& flags, Clock& clock, Operator& person, LinkObservers& observers);

    /// The port that all exchanges use from now on.
    void usePort(SerialPort& port);

    /// Sends `byte` and returns the board's one-byte answer, 0 to 255, or `kNoReply`.
    /// Waits 1.0 s, then twice more for 2.0 s after sending attention, then asks the operator.
    /// With `Await::Nothing` returns 0 at once. `Waiting::Discard` first drops what has been
    /// received: in a strict one-byte dialogue it cannot be the answer to `byte`.
    /// After a disturbance the line has to be quiet before `byte` goes out. `meaning` is told to
    /// the observers and changes nothing.
    int ExchangeByte(std::uint8_t byte, const ByteMeaning& meaning, Await await = Await::Reply,
                     Waiting waiting = Waiting::Discard);

    /// Sends 0xFF and returns the answer. The board has left its mode, whatever it answers.
    int callAttention(Waiting waiting);

    /// Puts the board into `mode` by attention and `commandByte`, each answered 0x55. Asks the
    /// operator when 2.0 s have not been enough; his Cancel closes the port and takes the link
    /// off line. Returns whether the board is in the mode.
    bool EnterLinkMode(LinkMode mode, std::uint8_t commandByte);

    /// Whether the board took the last `EnterLinkMode` at the first try. If not, answers and bytes
    /// may have been out of step before it.
    bool enteredAtOnce() const { return m_enteredAtOnce; }

    /// One byte inside a frame of the current mode. Returns the answer, or `kNoReply` also when
    /// the wait had to be broken by attention: the answer to that is none to `byte`.
    int exchangeInFrame(std::uint8_t byte, ByteMeaning meaning);

    /// Sends `byte` inside a frame; returns whether the board sent it back unchanged. Any other
    /// answer leaves the mode, and the line settles before the next byte.
    bool echoes(std::uint8_t byte, ByteMeaning meaning);

    /// Whether the last answer came soon enough for the board to be still inside its frame. An
    /// answer within the wait is an answer, however late, but the board drops a frame whose next
    /// byte is not there in half a second, and would take that byte for the start of another.
    bool frameIsAlive() const { return m_lastWait <= kFrameLife; }

    /// Waits at most `limit` for one byte, with no try to wake the board, and returns it or
    /// `kNoReply`. Serves pending events meanwhile.
    int awaitByte(const ByteMeaning& meaning, Duration limit, const PendingEvents& pendingEvents);

    /// A frame was broken off: the mode is lost, and the line settles before the next byte,
    /// long enough for the board to drop the half frame too.
    void abandonFrame();

    /// The board is to be taken as idle: nothing is assumed about its mode.
    void forgetMode() { m_mode = LinkMode::None; }
    LinkMode mode() const { return m_mode; }

    /// Nothing more is sent for now.
    void rest();

    bool isPortOpen() const { return m_port != nullptr && m_port->isOpen(); }

    /// Closes the port; the board is told nothing.
    void closePort();

    /// Starts afresh on a port that has just been opened.
    void portOpened();

private:
    /// Well before the board's half second is over.
    static constexpr Duration kFrameLife = std::chrono::milliseconds(400);

    int awaitReply(Duration sentAt);
    int inputOrEvents(Duration deadline, const PendingEvents& pendingEvents);
    bool inputBefore(Duration deadline);
    ExchangeFault faultOf(int reply, const ByteMeaning& meaning) const;
    void report(std::optional<std::uint8_t> sent, Duration start, int reply,
                const ByteMeaning& meaning, ExchangeFault fault);
    bool tryToEnter(LinkMode mode, std::uint8_t commandByte);
    void giveUp();
    bool resent() const { return !m_resends.empty(); }
    bool retryWanted(const char* text);
    void outOfStep(Duration quiet);
    void settle();

    LinkFlags& m_flags;
    Clock& m_clock;
    Operator& m_operator;
    LinkObservers& m_observers;
    SerialPort* m_port = nullptr;
    LinkMode m_mode = LinkMode::None;
    bool m_enteredAtOnce = false;
    std::vector<Duration> m_resends; ///< attention bytes that have broken the last exchange's wait
    Duration m_lastWait{0};          ///< from the last byte to its answer
    Duration m_quietNeeded{0};       ///< silence to wait for before the next byte
};

} // namespace tambrix
