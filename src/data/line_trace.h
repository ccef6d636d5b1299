#pragma once

#include "data/line_frames.h"

#include <cstdint>
#include <deque>

namespace tambrix {

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
    void clear() { makeRoom(0); }

    /// How the line stood before the first exchange held: a board that is only read stays in one
    /// mode for days.
    const LineFrames& framesBefore() const { return m_before; }

    /// For a trace that is still empty: how the line stood before it.
    void beginAfter(const LineFrames& before) { m_before = before; }

    /// Numbers of the exchanges held: `begin()` up to, and not including, `end()`.
    std::uint64_t begin() const { return m_end - m_exchanges.size(); }
    std::uint64_t end() const { return m_end; }

    /// The exchange with this number, which must be held.
    const LineExchange& at(std::uint64_t number) const { return m_exchanges[number - begin()]; }

private:
    void makeRoom(std::size_t room);

    std::size_t m_capacity;
    std::deque<LineExchange> m_exchanges;
    LineFrames m_before;
    std::uint64_t m_end = 0;
};

} // namespace tambrix
