#pragma once

#include "tests/support/link_rig.h"

#include <array>

namespace tambrix {

inline void expectBox(const OperatorBox& box, const OperatorBox& expected)
{
    EXPECT_EQ(box.icon, expected.icon);
    EXPECT_EQ(box.buttons, expected.buttons);
    EXPECT_EQ(box.title, expected.title);
    EXPECT_EQ(box.text, expected.text);
}

/// This box was shown, and no other.
inline void expectOnlyBox(const ScriptedOperator& person, const OperatorBox& expected)
{
    ASSERT_EQ(person.boxes.size(), 1u);
    expectBox(person.boxes.front(), expected);
}

struct NamedFault
{
    const char* name;
    LineFault fault;
};

inline constexpr std::array kEveryFault = {
    NamedFault{"request lost", {LineFault::Kind::LoseRequest, 0, {}}},
    NamedFault{"reply lost", {LineFault::Kind::LoseReply, 0, {}}},
    NamedFault{"reply changed", {LineFault::Kind::ChangeReply, 0x01, {}}},
    NamedFault{"reply late", {LineFault::Kind::DelayReply, 0, std::chrono::milliseconds(1500)}},
    NamedFault{"reply doubled", {LineFault::Kind::DoubleReply, 0, {}}},
    NamedFault{"port gone", {LineFault::Kind::Unplug, 0, {}}},
};

/// Runs a session anew for every kind of line fault at every one of its exchanges, to the first
/// that fails: one is enough to read.
template <typename Session> void sweepFaults(std::size_t exchanges, Session session)
{
    for (const NamedFault& planned : kEveryFault) {
        for (std::size_t k = 0; k < exchanges && !testing::Test::HasFailure(); ++k) {
            SCOPED_TRACE(std::string(planned.name) + " at exchange " + std::to_string(k));
            session(k, planned.fault);
        }
    }
}

/// What a person does after a fault: plugs the cable in and chooses Online Data.
inline void startAfresh(LinkRig& rig)
{
    rig.line.plugIn();
    rig.line.clearFaults();
    rig.clock.pause(std::chrono::seconds(1));
    rig.open();
}

} // namespace tambrix
