#pragma once

#include "data/line_exchange.h"

#include <cstdint>
#include <string_view>

namespace tambrix {

/// What one exchange is for, told from the bytes before it alone.
enum class LineRole {
    Attention,   ///< 0xFF: the board leaves its mode
    Resend,      ///< 0xFF once more, because an answer did not come
    Mode,        ///< the command byte after attention
    AddressHigh, ///< first byte of a register frame
    AddressLow,  ///< second byte; when reading, its answer is the data
    Data,        ///< third byte of a frame that writes
    Record,      ///< a byte of a program download
    Other        ///< outside a known mode, or of the limit switch
};

/// Follows the modes and frames of the line, one exchange after the other.
class LineFrames
{
public:
    /// What the next exchange is for. A frame whose answer does not fit ends the mode, as it does
    /// for the link.
    LineRole take(const LineExchange& exchange);

    /// The mode of the board: "read", "write", "program", "other"; empty where it is in none.
    std::string_view mode() const;

    /// Follows a board that has been in this mode before; false when there is none of this name.
    bool beginIn(std::string_view mode);

    /// Whether the next exchange begins a frame.
    bool betweenFrames() const { return m_inFrame == 0; }

    /// Byte address of the frame under way or just ended, 0 to 65535.
    std::uint16_t address() const { return m_address; }

    /// Whether the frame just taken writes; else it reads.
    bool writing() const { return m_writing; }

    /// Whether the last exchange was answered as its role asks for.
    bool answeredWell() const { return m_well; }

private:
    enum class Mode { None, Command, Read, Write, Program, Other };

    LineRole command(const LineExchange& exchange);
    LineRole frameByte(const LineExchange& exchange);

    Mode m_mode = Mode::None;
    int m_inFrame = 0; ///< bytes of the frame so far
    bool m_writing = false;
    bool m_well = true;
    bool m_unanswered = false;
    std::uint16_t m_address = 0;
};

/// Puts `kSecretByte` in place of what belongs to the passcode's register.
class PasscodeMask
{
public:
    explicit PasscodeMask(const LineFrames& before = {}) : m_frames(before) {}

    LineExchange masked(LineExchange exchange);

    /// Whether the exchange just masked was answered as it should be.
    bool answeredWell() const { return m_frames.answeredWell(); }

private:
    LineFrames m_frames;
    bool m_guarded = false; ///< what comes may still be of the passcode
};

} // namespace tambrix
