#pragma once

#include "link/link_observer.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace tambrix {

/// The observers of one link; they are not owned.
class LinkObservers
{
public:
    void add(LinkObserver& observer) { m_list.push_back(&observer); }

    /// Also while observers are being told: who is removed is told nothing more.
    void remove(LinkObserver& observer)
    {
        std::ranges::replace(m_list, &observer, nullptr);
        if (m_telling == 0)
            tidyUp();
    }

    bool empty() const { return m_list.empty(); }

    /// Calls `event` of every observer, with the same arguments.
    template <typename Event, typename... Arguments>
    void tell(Event event, const Arguments&... arguments)
    {
        ++m_telling;
        // NOLINTNEXTLINE(modernize-loop-convert): the list may grow meanwhile
        for (std::size_t i = 0; i < m_list.size(); ++i) {
            if (m_list[i] != nullptr)
                (m_list[i]->*event)(arguments...);
        }
        if (--m_telling == 0)
            tidyUp();
    }

private:
    void tidyUp() { std::erase(m_list, nullptr); }

    std::vector<LinkObserver*> m_list;
    int m_telling = 0;
};

} // namespace tambrix
