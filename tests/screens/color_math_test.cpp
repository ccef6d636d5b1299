#include "screens/color_math.h"

#include "screens/shift_data_screen.h"

#include <gtest/gtest.h>

namespace tambrix {
namespace {

constexpr DurationLimits kLimits{150, 500};

TEST(ColorMath, LimitsADurationByTheOtherAndReplacesAnUnsoundOne)
{
    EXPECT_EQ(onRange(209, kLimits), (EntryRange{0, 149}));
    EXPECT_EQ(onRange(210, kLimits), (EntryRange{0, 150}));
    EXPECT_EQ(cycleRange(120, kLimits), (EntryRange{180, 500}));
    EXPECT_EQ(soundOn(150, kLimits), 150);
    EXPECT_EQ(soundOn(151, kLimits), 0);
    EXPECT_EQ(soundCycle(110, 50, kLimits), 110);
    EXPECT_EQ(soundCycle(109, 50, kLimits), 200);
    EXPECT_EQ(soundCycle(500, 50, kLimits), 500);
    EXPECT_EQ(soundCycle(501, 50, kLimits), 200);
}

TEST(ResetMask, FollowsTheDuctorNumber)
{
    const std::pair<const char*, int> cases[] = {{"0", 255}, {"1", 1},   {"8", 128}, {"-1", 0},
                                                 {"9", 0},   {"2.5", 2}, {"0.4", 0}, {" 4 ", 8}};
    for (const auto& [text, mask] : cases)
        EXPECT_EQ(resetMask(text), mask) << text;
}

} // namespace
} // namespace tambrix
