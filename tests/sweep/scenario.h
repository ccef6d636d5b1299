#pragma once

#include "tests/support/link_rig.h"

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace tambrix {

/// What a session says of itself when it is over.
struct Claim
{
    bool done = false;  ///< all that it was to do succeeded
    std::string values; ///< all that it has read
    /// What it calls verified: these registers hold these values.
    std::vector<std::pair<std::string, std::int32_t>> verified = {};
};

/// A session between the program and the board whose every exchange is disturbed in turn.
struct Scenario
{
    const char* name;
    std::function<Claim(LinkRig&)> run; ///< the link is open, the press stands
    /// Only every so many exchanges are disturbed, where the whole data set is read.
    std::size_t stride = 1;
};

/// All scenarios. A new one is one row here.
const std::vector<Scenario>& scenarios();

} // namespace tambrix
