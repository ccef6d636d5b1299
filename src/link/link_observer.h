#pragma once

#include "link/clock.h"
#include "link/link_state.h"
#include "link/operator.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace tambrix {

/// What a byte is for, as the layer that sends it knows it.
enum class ByteUse {
    Attention,    ///< 0xFF: leave the mode; answered 0x55
    ModeCommand,  ///< asks for `ByteMeaning::mode`; answered 0x55
    AddressHigh,  ///< of a register (echoed) or of a program record (not answered)
    AddressLow,   ///< in read mode answered by the data byte, in write mode echoed
    Data,         ///< of a register (echoed), the limit switch (0x55), a program record (silence)
    RecordLength, ///< first byte of a program record; not answered
    RecordSum,    ///< no byte to the board, only its answer to a whole program record
    NextByte,     ///< 0x55: asks the limit switch for its next byte
    StatusPoll,   ///< 0x38: asks the limit switch whether it is ready; answered 0x55
};

/// What one byte stands for.
struct ByteMeaning
{
    ByteUse use = ByteUse::Data;
    LinkMode mode = LinkMode::None; ///< the mode the byte belongs to
    std::int32_t address = -1;      ///< byte address (record: load address); -1: it has none
    /// The only answer that is right; empty where any byte may be.
    std::optional<std::uint8_t> expected = std::nullopt;
};

enum class ExchangeFault {
    None,
    NoAnswer,    ///< nothing came within all waits
    WrongAnswer, ///< not the byte expected: a wrong echo, or no acknowledgement
    Resent,      ///< the wait was broken by attention: the answer is none to the byte
};

/// One byte out and the one byte back, after it is over.
struct ExchangeReport
{
    Duration start{};                  ///< when the byte was sent, on the link's clock
    Duration duration{};               ///< until the answer was there or given up
    std::optional<std::uint8_t> sent;  ///< empty for ByteUse::RecordSum alone
    std::optional<std::uint8_t> reply; ///< empty: none came, or none is due
    ByteMeaning meaning;
    ExchangeFault fault = ExchangeFault::None;
    std::vector<Duration> resends; ///< when attention was sent meanwhile, on the link's clock
};

/// Somebody who watches the link: a line monitor, a recorder. An observer is told in the link's
/// thread while the link is busy, so a call from here into the link is refused. The board waits
/// meanwhile: it should only take note. It may remove observers, itself too.
class LinkObserver
{
public:
    virtual ~LinkObserver() = default;

    /// Every byte exchange on the line, those of program transfer and limit switch included.
    virtual void exchangeDone(const ExchangeReport& /*report*/) {}

    /// A register has been read: its decimal text as `RSRead` returns it, "0" when `succeeded` is
    /// false. Also told of the byte that is read before one of its bits is written, and of reads
    /// that fail at once because the link has failed.
    virtual void registerRead(std::string_view /*addr*/, std::string_view /*value*/,
                              bool /*succeeded*/)
    {
    }

    /// A register was to be written with this entry text. `succeeded`: the board has sent back
    /// every byte as it should. If not, the value was refused, or nobody knows what it holds.
    virtual void registerWritten(std::string_view /*addr*/, std::string_view /*value*/,
                                 bool /*succeeded*/)
    {
    }

    /// The port has been opened and the board called; `answered`: it is there.
    virtual void linkOpened(bool /*answered*/) {}
    /// The port has been closed: by `CloseRSComm`, before it is opened anew, or by the operator's
    /// Cancel in the box of a refused mode.
    virtual void linkClosed() {}

    /// The link shows a box: of a communication error, a refused entry, a program transfer. Told
    /// before it opens, and so before the end of the exchange that made it necessary.
    virtual void boxShown(const OperatorBox& /*box*/) {}
};

} // namespace tambrix
