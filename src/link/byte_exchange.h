#pragma once

#include "link/clock.h"
#include "link/link_state.h"
#include "link/operator.h"
#include "link/serial_port.h"

#include <cstdint>
#include <functional>

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
    ByteExchange(LinkFlags& flags, Clock& clock, Operator& person);

    /// The port that all exchanges use from now on.
    void usePort(SerialPort& port);

    /// Sends `byte` and returns the board's one-byte answer, 0 to 255, or `kNoReply`.
    /// Waits 1.0 s, then twice more for 2.0 s after sending attention, then asks the operator.
    /// With `Await::Nothing` returns 0 at once. `Waiting::Discard` first drops what has been
    /// received: in a strict one-byte dialogue it cannot be the answer to `byte`.
    int ExchangeByte(std::uint8_t byte, Await await = Await::Reply,
                     Waiting waiting = Waiting::Discard);

    /// Sends 0xFF and returns the answer. The board has left its mode, whatever it answers.
    int callAttention(Waiting waiting);

    /// Puts the board into `mode` by attention and `commandByte`, each answered 0x55. Asks the
    /// operator when 2.0 s have not been enough; his Cancel closes the port and takes the link
    /// off line. Returns whether the board is in the mode.
    bool EnterLinkMode(LinkMode mode, std::uint8_t commandByte);

    /// One byte inside a frame of the current mode. Returns the answer, or `kNoReply` also when
    /// the wait had to be broken by attention: the answer to that is none to `byte`.
    int exchangeInFrame(std::uint8_t byte);

    /// Sends `byte` inside a frame; returns whether the board sent it back unchanged. Any other
    /// answer leaves the mode, and the line settles before the next attention.
    bool echoes(std::uint8_t byte);

    /// Waits at most `limit` for one byte, with no try to wake the board, and returns it or
    /// `kNoReply`. Serves pending events meanwhile.
    int awaitByte(Duration limit, const PendingEvents& pendingEvents);

    /// A frame was broken off: the mode is lost, and the line settles before the next attention,
    /// long enough for the board to drop the half frame too.
    void abandonFrame();

    /// The board is to be taken as idle: nothing is assumed about its mode.
    void forgetMode() { m_mode = LinkMode::None; }
    LinkMode mode() const { return m_mode; }

    bool isPortOpen() const { return m_port != nullptr && m_port->isOpen(); }

    /// Closes the port; the board is told nothing.
    void closePort();

    /// Starts afresh on a port that has just been opened.
    void portOpened();

private:
    int awaitReply();
    bool inputBefore(Duration deadline);
    bool acknowledgesCommand(std::uint8_t commandByte);
    bool retryWanted(const char* text);
    void outOfStep(Duration quiet);
    void settle();

    LinkFlags& m_flags;
    Clock& m_clock;
    Operator& m_operator;
    SerialPort* m_port = nullptr;
    LinkMode m_mode = LinkMode::None;
    bool m_attentionResent = false; ///< the last exchange was broken by an attention byte
    Duration m_quietNeeded{0};      ///< silence to wait for before the next attention
};

} // namespace tambrix
