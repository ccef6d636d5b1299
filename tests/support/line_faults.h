#pragma once

// The one table of line faults, and the one loop over it. Every sweep stands on this header: the
// link's and the transfers' own tests, tests/sweep, and whoever adds a session of his own.

#include "simulator/simulated_line.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tambrix {

struct NamedFault
{
    std::string name;
    LineFault fault;

    /// Whether a wrong byte arrives: on a line without checksums it may pass for a right one.
    bool bringsWrongByte() const
    {
        return fault.kind == LineFault::Kind::ChangeReply ||
               fault.kind == LineFault::Kind::DoubleReply;
    }
    bool portDies() const { return fault.kind == LineFault::Kind::Unplug; }
};

/// All that can happen to one exchange.
inline std::vector<NamedFault> everyFault()
{
    using Kind = LineFault::Kind;
    std::vector<NamedFault> faults = {{"request lost", {Kind::LoseRequest, 0, {}}},
                                      {"answer lost", {Kind::LoseReply, 0, {}}},
                                      {"dead port", {Kind::Unplug, 0, {}}}};
    for (int bit = 0; bit < 8; ++bit)
        faults.push_back({"bit " + std::to_string(bit) + " flipped",
                          {Kind::ChangeReply, static_cast<std::uint8_t>(1 << bit), {}}});
    for (const int ms : {0, 1, 16, 100})
        faults.push_back({"doubled after " + std::to_string(ms) + " ms",
                          {Kind::DoubleReply, 0, std::chrono::milliseconds(ms)}});
    for (const int ms : {300, 600, 900, 1500, 3000})
        faults.push_back({"late by " + std::to_string(ms) + " ms",
                          {Kind::DelayReply, 0, std::chrono::milliseconds(ms)}});
    return faults;
}

/// Some of each kind, for what is run with every build.
inline std::vector<NamedFault> faultSample()
{
    std::vector<NamedFault> faults = everyFault();
    std::erase_if(faults, [](const NamedFault& fault) {
        for (const char* name : {"bit 1", "bit 2", "bit 3", "bit 4", "bit 5", "bit 6", "by 900",
                                 "after 1 ms", "by 300"}) {
            if (fault.name.find(name) != std::string::npos)
                return true;
        }
        return false;
    });
    return faults;
}

/// Runs a session anew for every fault at every one of its exchanges, to the first that fails:
/// one is enough to read. `session` takes the exchange's number and the fault.
template <typename Session> void sweepFaults(std::size_t exchanges, Session session)
{
    for (const NamedFault& fault : faultSample()) {
        for (std::size_t k = 0; k < exchanges && !testing::Test::HasFailure(); ++k) {
            SCOPED_TRACE(fault.name + " at exchange " + std::to_string(k));
            session(k, fault);
        }
    }
}

} // namespace tambrix
