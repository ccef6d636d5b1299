#include "simulator/memory_map.h"
#include "simulator/simulated_board.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tambrix {
namespace {

using std::chrono::milliseconds;

constexpr int kSilence = -1;

struct Exchange
{
    int sent = 0;
    int answered = kSilence;
    milliseconds gap{1}; // since the byte before
};

struct Conversation
{
    std::string name;
    std::vector<Exchange> exchanges;
    int modeAfter = 0;
};

// Byte 0x0212 holds 0x7E in every conversation.
const std::vector<Conversation> kConversations{
    {"SilentBeforeAttention", {{0x01}, {0x02}, {0x55}, {0x00}}, 0},
    {"AttentionAnyTime", {{0xFF, 0x55}, {0xFF, 0x55}, {0xFF, 0x55}}, 0},
    {"ReadMode", {{0xFF, 0x55}, {0x01, 0x55}, {0x02, 0x02}, {0x12, 0x7E}}, 1},
    {"ReadsOnInReadMode",
     {{0xFF, 0x55}, {0x01, 0x55}, {0x02, 0x02}, {0x12, 0x7E}, {0x02, 0x02}, {0x12, 0x7E}},
     1},
    {"WriteMode", {{0xFF, 0x55}, {0x02, 0x55}, {0x05, 0x05}, {0x12, 0x12}, {0x99, 0x99}}, 2},
    {"UnknownCommandEndsExpectation", {{0xFF, 0x55}, {0x07}, {0x01}, {0x02}}, 0},
    {"CommandOnlyAfterAttention", {{0xFF, 0x55}, {0x01, 0x55}, {0x02, 0x02}, {0x01, 0x00}}, 1},
    {"AttentionLeavesReadMode", {{0xFF, 0x55}, {0x01, 0x55}, {0xFF, 0x55}, {0x03}, {0x02}}, 0},
    {"AttentionLeavesWriteMode", {{0xFF, 0x55}, {0x02, 0x55}, {0xFF, 0x55}, {0x05}, {0x12}}, 0},
    {"FromWriteToReadMode",
     {{0xFF, 0x55}, {0x02, 0x55}, {0xFF, 0x55}, {0x01, 0x55}, {0x02, 0x02}, {0x12, 0x7E}},
     1},
    {"LowAddress255IsData", {{0xFF, 0x55}, {0x01, 0x55}, {0x02, 0x02}, {0xFF, 0x00}}, 1},
    {"WritesData255",
     {{0xFF, 0x55}, {0x02, 0x55}, {0x02, 0x02}, {0xFF, 0xFF}, {0xFF, 0xFF}, {0xFF, 0x55}},
     0},
    {"HalfFrameKeptWithinTheGap",
     {{0xFF, 0x55}, {0x01, 0x55}, {0x02, 0x02}, {0x12, 0x7E, milliseconds(500)}},
     1},
    {"HalfReadFrameDroppedAfterTheGap",
     {{0xFF, 0x55}, {0x01, 0x55}, {0x03, 0x03}, {0x02, 0x02, milliseconds(501)}, {0x12, 0x7E}},
     1},
    {"HalfWriteFrameDroppedAfterTheGap",
     {{0xFF, 0x55}, {0x02, 0x55}, {0x02, 0x02}, {0x12, 0x12}, {0xFF, 0x55, milliseconds(501)}},
     0},
    {"AttentionAfterALateHalfFrame",
     {{0xFF, 0x55}, {0x01, 0x55}, {0x02, 0x02}, {0xFF, 0x55, milliseconds(1000)}, {0x01, 0x55}},
     1},
};

class BoardProtocol : public testing::TestWithParam<Conversation>
{
};

TEST_P(BoardProtocol, AnswersWhatItExpectsAndNothingElse)
{
    SimulatedBoard board;
    board.poke(0x0212, 0x7E);
    SimTime now{};
    for (std::size_t i = 0; i < GetParam().exchanges.size(); ++i) {
        const Exchange& exchange = GetParam().exchanges[i];
        now += exchange.gap;
        const auto answer = board.receive(static_cast<std::uint8_t>(exchange.sent), now);
        EXPECT_EQ(answer ? int{*answer} : kSilence, exchange.answered) << "exchange " << i;
    }
    EXPECT_EQ(board.mode(), GetParam().modeAfter);
}

INSTANTIATE_TEST_SUITE_P(Conversations, BoardProtocol, testing::ValuesIn(kConversations),
                         [](const auto& tested) { return tested.param.name; });

void send(SimulatedBoard& board, std::initializer_list<std::uint8_t> bytes)
{
    for (const std::uint8_t byte : bytes)
        EXPECT_TRUE(board.receive(byte, SimTime::zero())) << "no answer to " << int{byte};
}

TEST(BoardMemoryOverTheWire, KeepsACounterAsTwoDecimalWords)
{
    SimulatedBoard board;
    // 123456789 is the words 6789 and 12345 at 940 and 942.
    send(board, {0xFF, 0x02, 0x03, 0xAC, 0x85, 0x03, 0xAD, 0x1A});
    send(board, {0x03, 0xAE, 0x39, 0x03, 0xAF, 0x30});
    EXPECT_EQ(board.peekCounter(940), 123456789U);
    EXPECT_EQ(board.peekWord(940), 6789);
    EXPECT_EQ(board.peekWord(942), 12345);
}

TEST(BoardMemoryOverTheWire, DroppedWriteFrameStoresNothing)
{
    SimulatedBoard board;
    const std::vector<std::uint8_t> before(board.memory().begin(), board.memory().end());
    send(board, {0xFF, 0x02, 0x02, 0x12});
    EXPECT_EQ(board.receive(0xFF, SimTime(std::chrono::seconds(1))), 0x55);
    EXPECT_EQ(board.peek(0x0212), before[0x0212]);
    EXPECT_EQ(board.peek(0x02FF), before[0x02FF]);
}

TEST(BoardPower, WithoutPowerThereIsSilenceAndAfterwardsNoMode)
{
    SimulatedBoard board;
    send(board, {0xFF, 0x01});
    board.setPowered(false);
    EXPECT_FALSE(board.receive(0xFF, SimTime::zero()));
    board.setPowered(true);
    EXPECT_EQ(board.mode(), 0);
    EXPECT_FALSE(board.receive(0x02, SimTime::zero()));
    EXPECT_EQ(board.receive(0xFF, SimTime::zero()), 0x55);
}

} // namespace
} // namespace tambrix
