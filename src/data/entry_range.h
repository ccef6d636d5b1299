#pragma once

#include <cstdint>

namespace tambrix {

/// What an entry may be, both ends included.
struct EntryRange
{
    std::int32_t minimum = 0;
    std::int32_t maximum = 0;

    bool operator==(const EntryRange&) const = default;
};

} // namespace tambrix
