#include "data/line_trace.h"

namespace tambrix {

void LineTrace::add(const LineExchange& exchange)
{
    makeRoom(m_capacity - 1);
    m_exchanges.push_back(exchange);
    ++m_end;
}

void LineTrace::setCapacity(std::size_t capacity)
{
    m_capacity = capacity;
    makeRoom(capacity);
}

void LineTrace::makeRoom(std::size_t room)
{
    for (; m_exchanges.size() > room; m_exchanges.pop_front())
        m_before.take(m_exchanges.front());
}

} // namespace tambrix
