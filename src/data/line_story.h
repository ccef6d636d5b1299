#pragma once

#include "data/line_frames.h"
#include "data/line_trace.h"

#include <QString>

#include <deque>
#include <optional>

namespace tambrix {

enum class LineTrouble : std::uint8_t {
    None,
    NoAnswer,    ///< given up after the wait
    WrongAnswer, ///< no echo, or no acknowledgement
    Unasked,     ///< a byte that nobody asked for
    BrokenOff    ///< the register's other bytes did not follow
};

/// What a few exchanges together mean.
struct LineEntry
{
    enum class Kind : std::uint8_t { Attention, Mode, Read, Write, Record, Other };

    std::uint64_t first = 0; ///< number of its first exchange
    std::uint32_t count = 0; ///< exchanges, those of the resends included
    Kind kind = Kind::Other;
    LineTrouble trouble = LineTrouble::None;
    bool secret = false;
    char registerLetter = 0;
    std::uint16_t address = 0;     ///< of the register; the command of a mode
    std::int16_t wanted = kNoByte; ///< the answer that belonged there, with `WrongAnswer`
    std::int16_t found = kNoByte;  ///< the answer that came
    std::uint8_t resends = 0;
    std::int64_t value = -1; ///< of the register; -1: not known
};

/// "read W112 = 1830", "attention", "write B692 = 150", "read mode".
QString meaning(const LineEntry& entry);

/// What failed and why; empty where nothing did.
QString troubleText(const LineEntry& entry);

/// "W112"; empty for an entry that is about no register.
QString registerName(const LineEntry& entry);

/// Tells what the exchanges of a trace mean, in the order in which they come.
class LineStory
{
public:
    /// Takes what `trace` holds beyond the last time, and forgets what it holds no more. Returns
    /// whether anything has changed.
    bool follow(const LineTrace& trace);

    /// The entries; the last one may still change, by its resends.
    const std::deque<LineEntry>& entries() const { return m_entries; }

    /// How many entries were forgotten so far: entry i is number `forgotten() + i` of all.
    std::uint64_t forgotten() const { return m_forgotten; }

private:
    void take(std::uint64_t number, const LineExchange& exchange);
    void takeFrameByte(std::uint64_t number, const LineExchange& exchange, LineRole role);
    void takeRegisterByte(const LineExchange& exchange);
    void takeResend();
    void takeOther(std::uint64_t number, const LineExchange& exchange, LineRole role);
    void openRegister();
    void closeRegister();
    LineEntry& add(std::uint64_t number, LineEntry::Kind kind);

    /// The register whose bytes are being collected.
    struct OpenRegister
    {
        LineEntry entry;
        int have = 0;
        std::int16_t bytes[4] = {};
    };

    LineFrames m_frames;
    std::deque<LineEntry> m_entries;
    std::uint64_t m_forgotten = 0;
    std::uint64_t m_next = 0;
    std::uint64_t m_frameStart = 0;
    std::optional<OpenRegister> m_open;
};

} // namespace tambrix
