#pragma once

#include "link/clock.h"

#include <cstdint>
#include <deque>

namespace tambrix {

/// No byte: nothing was sent, or no answer came.
inline constexpr std::int16_t kNoByte = -1;
/// A byte of the passcode, which no trace keeps.
inline constexpr std::int16_t kSecretByte = -2;

/// One byte to the board and the board's one-byte answer.
struct LineExchange
{
    Duration sent{};            ///< when, on the clock of the link
    Duration took{};            ///< until the answer, or until it was given up
    std::int16_t out = kNoByte; ///< 0 to 255; `kNoByte`: the answer came unasked
    std::int16_t in = kNoByte;  ///< 0 to 255; `kNoByte`: there was none
    char registerLetter = 0;    ///< 'B', 'W' or 'D' of the register under way; 0: not known
};

/// The last exchanges, as many as there is room for: the oldest make way. Exchanges are numbered
/// from 0 as they come and keep their numbers.
class LineTrace
{
public:
    explicit LineTrace(std::size_t capacity) : m_capacity(capacity) {}

    void add(const LineExchange& exchange);

    /// Makes room for that many; the newest stay.
    void setCapacity(std::size_t capacity);

    /// Forgets all exchanges; those to come are numbered on.
    void clear() { m_exchanges.clear(); }

    /// Numbers of the exchanges held: `begin()` up to, and not including, `end()`.
    std::uint64_t begin() const { return m_end - m_exchanges.size(); }
    std::uint64_t end() const { return m_end; }

    /// The exchange with this number, which must be held.
    const LineExchange& at(std::uint64_t number) const { return m_exchanges[number - begin()]; }

private:
    void makeRoom(std::size_t room);

    std::size_t m_capacity;
    std::deque<LineExchange> m_exchanges;
    std::uint64_t m_end = 0;
};

} // namespace tambrix
