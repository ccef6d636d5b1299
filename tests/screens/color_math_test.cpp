#include "screens/color_math.h"

#include "screens/shift_data_screen.h"

#include <gtest/gtest.h>

namespace tambrix {
namespace {

constexpr DurationLimits kLimits{150, 500};

TEST(ColorMath, TheTwoDurationsOfADuctorLimitEachOther)
{
    EXPECT_EQ(onRange(180, kLimits), (EntryRange{0, 120}));
    EXPECT_EQ(onRange(209, kLimits), (EntryRange{0, 149}));
    EXPECT_EQ(onRange(210, kLimits), (EntryRange{0, 150}));
    EXPECT_EQ(onRange(300, kLimits), (EntryRange{0, 150}));
    EXPECT_EQ(cycleRange(120, kLimits), (EntryRange{180, 500}));
}

TEST(ColorMath, AnUnsoundStoredDurationIsReplaced)
{
    EXPECT_EQ(soundOn(150, kLimits), 150);
    EXPECT_EQ(soundOn(180, kLimits), 0);
    EXPECT_EQ(soundCycle(110, 50, kLimits), 110);
    EXPECT_EQ(soundCycle(100, 50, kLimits), 200);
    EXPECT_EQ(soundCycle(500, 50, kLimits), 500);
    EXPECT_EQ(soundCycle(501, 50, kLimits), 200);
}

TEST(ResetMask, FollowsTheDuctorNumber)
{
    const std::vector<std::pair<const char*, int>> cases = {
        {"0", 255}, {"1", 1}, {"3", 4},   {"8", 128}, {"-1", 0},
        {"-5", 0},  {"9", 0}, {"2.5", 2}, {"0.4", 0}, {" 4 ", 8}};
    for (const auto& [text, mask] : cases)
        EXPECT_EQ(resetMask(text), mask) << text;
}

} // namespace
} // namespace tambrix
