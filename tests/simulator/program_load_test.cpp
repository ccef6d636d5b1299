#include "simulator/memory_map.h"
#include "simulator/sample_program.h"
#include "simulator/simulated_board.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

namespace tambrix {
namespace {

using std::chrono::milliseconds;

constexpr int kSilence = -1;

/// A board, and a PC that sends a byte a millisecond.
struct LoadRig
{
    SimulatedBoard board;
    SimTime now{};

    int send(int byte, milliseconds gap = milliseconds(1))
    {
        now += gap;
        const auto answer = board.receive(static_cast<std::uint8_t>(byte), now);
        return answer ? *answer : kSilence;
    }

    /// The answers to these bytes, in order.
    std::vector<int> sendAll(const std::vector<int>& bytes)
    {
        std::vector<int> answers;
        for (const int byte : bytes)
            answers.push_back(send(byte));
        return answers;
    }

    void enterLoadMode()
    {
        board.poke(memory_map::kProgramModeRequest, 86);
        EXPECT_EQ(sendAll({0xFF, 3}), (std::vector{0x55, 0x55}));
    }

    std::uint8_t program(int address)
    {
        return board.program().bytes.byte(static_cast<std::uint16_t>(address));
    }
};

} // namespace

TEST(ProgramLoad, NeedsTheRequest)
{
    LoadRig rig;
    EXPECT_EQ(rig.sendAll({0xFF, 3, 1, 0, 0, 7}),
              (std::vector{0x55, kSilence, kSilence, kSilence, kSilence, kSilence}));
    EXPECT_EQ(rig.program(0), 0);
}

TEST(ProgramLoad, StoresARecordAndAnswersItsSum)
{
    LoadRig rig;
    rig.enterLoadMode();
    EXPECT_EQ(rig.sendAll({2, 0xFF, 0x10, 0xFF, 0x80}),
              (std::vector{kSilence, kSilence, kSilence, kSilence, 0x90}));
    EXPECT_EQ(rig.program(0xFF10), 0xFF);
    EXPECT_EQ(rig.program(0xFF11), 0x80);
    EXPECT_EQ(rig.board.peek(0xFF10), 0); // not a register
    EXPECT_EQ(rig.board.program().recordsTaken, 1u);
}

TEST(ProgramLoad, AttentionEndsItAndTheRequest)
{
    LoadRig rig;
    rig.enterLoadMode();
    EXPECT_EQ(rig.send(0xFF), 0x55);
    EXPECT_EQ(rig.board.mode(), 0);
    EXPECT_EQ(rig.send(3), kSilence);
    EXPECT_EQ(rig.board.peek(memory_map::kProgramModeRequest), 0);
}

TEST(ProgramLoad, AHalfRecordIsDroppedAfterTheGap)
{
    LoadRig rig;
    rig.enterLoadMode();
    rig.sendAll({3, 0, 0, 1});
    EXPECT_EQ(rig.send(1, milliseconds(501)), kSilence); // the length of a new record
    EXPECT_EQ(rig.sendAll({0, 5, 9}), (std::vector{kSilence, kSilence, 15}));
    EXPECT_EQ(rig.program(0), 0);
    EXPECT_EQ(rig.program(5), 9);
}

TEST(ProgramLoad, AGarbledRecordIsAnsweredWrongAndNotStored)
{
    LoadRig rig;
    rig.board.program().garbledRecord = 0;
    rig.enterLoadMode();
    EXPECT_EQ(rig.sendAll({1, 0, 5, 9}).back(), 16);
    EXPECT_EQ(rig.program(5), 0);
    EXPECT_EQ(rig.sendAll({1, 0, 5, 9}).back(), 15);
}

TEST(LimitSwitchModes, DataAfterTheCommandMayBeAttentionsByte)
{
    LoadRig rig;
    rig.board.limitSwitch().busyAnswers = 1;
    EXPECT_EQ(rig.sendAll({0xFF, 42, 0xFF, 0x00}), (std::vector{0x55, 0x55, 0x55, 0x55}));
    EXPECT_EQ(rig.sendAll({0x38, 0x55, 0x38, 0x55, 0x55}),
              (std::vector{0x55, 0x55, 0x55, 0x00, 0x55}));
    EXPECT_EQ(rig.board.peekWord(memory_map::kResolverOffset), 0xFF);
    EXPECT_EQ(rig.send(0xFF), 0x55);
    EXPECT_EQ(rig.board.mode(), 0);
}

TEST(LimitSwitchModes, DataThatStopsIsForgotten)
{
    LoadRig rig;
    EXPECT_EQ(rig.sendAll({0xFF, 42, 0x11}), (std::vector{0x55, 0x55, 0x55}));
    EXPECT_EQ(rig.send(0xFF, milliseconds(501)), 0x55); // attention again
    EXPECT_EQ(rig.board.peekWord(memory_map::kResolverOffset), 15);
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

} // namespace tambrix
