#include "data/alarm_message.h"
#include "data/setup_data.h"

#include <gtest/gtest.h>

#include <set>
#include <tuple>

using namespace tambrix;

TEST(DefaultData, HasTheControllersLayout)
{
    const SetupDataRecord data = defaultSetupData("V");
    ASSERT_EQ(data.Address.size(), 1614u);
    ASSERT_EQ(data.Value.size(), 1614u);
    const std::tuple<std::size_t, const char*, std::int32_t> cases[] = {
        {0, "D940", 0},    {7, "D968", 0},      {8, "W690", 500},   {9, "B692", 200},
        {10, "B1013", 25}, {11, "B1014", 100},  {12, "B694", 0},    {13, "W686", 0},
        {14, "B3100", 0},  {21, "B3107", 0},    {22, "W3110", 200}, {29, "W3124", 200},
        {94, "B3250", 0},  {109, "W3274", 200}, {1598, "B6070", 0}, {1613, "W6094", 200},
    };
    for (const auto& [index, address, value] : cases) {
        EXPECT_EQ(data.Address[index], address) << index;
        EXPECT_EQ(data.Value[index], value) << index;
    }
    EXPECT_EQ(nameOf(entryAt(125)), "Label 6 CYCLE Duration, Ductor 8");
    EXPECT_EQ(std::set(data.Address.begin(), data.Address.end()).size(), 1614u);
}

TEST(SystemMessages, NameEveryFaultyDuctor)
{
    const QString text = onlineMessage(5).display;
    EXPECT_EQ(text.count("Feedback Fault"), 2);
    EXPECT_TRUE(text.contains("Ductor No.1 ") && text.contains("Ductor No.3 "));
    for (const int normal : {0, -1})
        EXPECT_TRUE(onlineMessage(normal).display.endsWith("-- System Normal --"));
}
