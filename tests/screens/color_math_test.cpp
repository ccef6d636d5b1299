#include "screens/color_math.h"

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

} // namespace
} // namespace tambrix
