#include "simulator/board_image.h"
#include "simulator/memory_map.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace tambrix {
namespace {

using namespace memory_map;

TEST(BoardImage, LabelsLieInsideTheRangesTheControllerAccepts)
{
    const BoardMemory memory = makeBoardImage();
    for (int label = 0; label < kLabels; ++label) {
        for (int ductor = 0; ductor < kDuctors; ++ductor) {
            const int on = memory.byte(labelOn(label, ductor));
            const int cycle = memory.word(labelCycle(label, ductor));
            EXPECT_LE(on, memory.byte(kMaxOn)) << label << '/' << ductor;
            EXPECT_LE(on, cycle - 60) << label << '/' << ductor;
            EXPECT_LE(cycle, memory.word(kMaxCycle)) << label << '/' << ductor;
        }
    }
}

TEST(BoardImage, LabelsDifferFromEachOther)
{
    const BoardMemory memory = makeBoardImage();
    std::set<std::vector<std::uint8_t>> blocks;
    for (int label = 0; label < kLabels; ++label) {
        const auto block = memory.bytes().subspan(labelOn(label, 0), kLabelBlock);
        blocks.emplace(block.begin(), block.end());
    }
    EXPECT_GT(blocks.size(), 90U);
}

TEST(BoardImage, WorkingRegistersHoldTheLabelInWork)
{
    const BoardMemory memory = makeBoardImage();
    const int label = memory.word(kLabelNumber);
    for (int ductor = 0; ductor < kDuctors; ++ductor) {
        EXPECT_EQ(memory.byte(workingOn(ductor)), memory.byte(labelOn(label, ductor)));
        EXPECT_EQ(memory.word(workingCycle(ductor)), memory.word(labelCycle(label, ductor)));
    }
}

TEST(BoardImage, ParameterAndIdentityRegisters)
{
    const BoardMemory memory = makeBoardImage();
    EXPECT_EQ(memory.word(690), 500);
    EXPECT_EQ(memory.byte(692), 200);
    EXPECT_EQ(memory.byte(1013), 25);
    EXPECT_EQ(memory.byte(1014), 100);
    EXPECT_EQ(memory.byte(694), 255);
    const auto name = memory.bytes().subspan(61424, 8);
    EXPECT_TRUE(std::all_of(name.begin(), name.end(),
                            [](std::uint8_t code) { return code > 32 && code < 127; }));
}

TEST(BoardMemory, CounterStartsAgainAfterItsHighestValue)
{
    BoardMemory memory;
    memory.setCounter(940, 655359999);
    EXPECT_EQ(memory.counter(940), 655359999U);
    memory.setCounter(940, memory.counter(940) + 1);
    EXPECT_EQ(memory.counter(940), 0U);
}

} // namespace
} // namespace tambrix
