#include "simulator/board_image.h"
#include "simulator/memory_map.h"
#include "simulator/sample_program.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

namespace tambrix {
namespace {

using namespace memory_map;

TEST(BoardImage, LabelsDifferAndLieInsideTheRangesTheControllerAccepts)
{
    const BoardMemory memory = makeBoardImage();
    std::set<std::vector<std::uint8_t>> blocks;
    for (int label = 0; label < kLabels; ++label) {
        const auto block = memory.bytes().subspan(labelOn(label, 0), kLabelBlock);
        blocks.emplace(block.begin(), block.end());
        for (int ductor = 0; ductor < kDuctors; ++ductor) {
            const int on = memory.byte(labelOn(label, ductor));
            const int cycle = memory.word(labelCycle(label, ductor));
            EXPECT_LE(on, memory.byte(692)) << label << '/' << ductor;
            EXPECT_LE(on, cycle - 60) << label << '/' << ductor;
            EXPECT_LE(cycle, memory.word(690)) << label << '/' << ductor;
        }
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

TEST(SampleProgram, HoldsEveryByteValueAndNoTwoLikeRecords)
{
    const SampleProgram program;
    const auto bytes = program.bytes();
    EXPECT_EQ(std::set<int>(bytes.begin(), bytes.end()).size(), 256u);
    std::set<std::vector<std::uint8_t>> records;
    for (auto at = bytes.begin(); at != bytes.end(); at += 16)
        records.emplace(at, at + 16);
    EXPECT_EQ(records.size(), program.size / 16);
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
