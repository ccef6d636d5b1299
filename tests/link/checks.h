#pragma once

#include "tests/support/line_faults.h"
#include "tests/support/link_rig.h"

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

/// What the user does after a fault: plugs the cable in and chooses Online Data.
inline void startAfresh(LinkRig& rig)
{
    rig.line.plugIn();
    rig.line.clearFaults();
    rig.clock.pause(std::chrono::seconds(1));
    rig.open();
}

} // namespace tambrix
