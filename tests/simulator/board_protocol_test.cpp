#include "simulator/memory_map.h"
#include "simulator/simulated_board.h"

#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>
#include <string>
#include <utility>

namespace tambrix {
namespace {

using std::chrono::milliseconds;

/// A board, and a PC that sends a byte a millisecond.
struct BoardAndPc
{
    SimulatedBoard board;
    SimTime now{};

    /// Plays the PC's part of a conversation and returns what was really said: "FF" is a byte of
    /// the PC, "<55" its answer, "+500" the milliseconds from one byte to the next.
    std::string play(const std::string& conversation)
    {
        std::istringstream words(conversation);
        std::ostringstream said;
        said << std::hex << std::uppercase << std::setfill('0');
        milliseconds gap(1);
        for (std::string word; words >> word;) {
            if (word.front() == '<')
                continue;
            said << ' ' << word;
            if (word.front() == '+') {
                gap = milliseconds(std::stoi(word));
                continue;
            }
            now += std::exchange(gap, milliseconds(1));
            const int sent = std::stoi(word, nullptr, 16);
            if (const auto answer = board.receive(static_cast<std::uint8_t>(sent), now))
                said << " <" << std::setw(2) << int{*answer};
        }
        return said.str().substr(1);
    }

    void expect(const std::string& conversation) { EXPECT_EQ(play(conversation), conversation); }

    void enterLoadMode()
    {
        board.poke(memory_map::kProgramModeRequest, 86);
        expect("FF <55 03 <55");
    }

    int program(int address)
    {
        return board.program().bytes.byte(static_cast<std::uint16_t>(address));
    }
};

} // namespace

TEST(BoardProtocol, AnswersWhatItExpectsAndNothingElse)
{
    struct Case
    {
        const char* name;
        const char* conversation;
        int modeAfter;
    };
    const Case cases[] = {
        {"silent before attention", "01 02 55 00", 0},
        {"attention any time", "FF <55 FF <55 FF <55", 0},
        {"reads on in read mode", "FF <55 01 <55 02 <02 12 <7E 02 <02 12 <7E", 1},
        {"write mode", "FF <55 02 <55 05 <05 12 <12 99 <99", 2},
        {"unknown command ends expectation", "FF <55 07 01 02", 0},
        {"no load without its request", "FF <55 03 00 00 00", 0},
        {"attention leaves read mode", "FF <55 01 <55 FF <55 03 02", 0},
        {"from write to read mode", "FF <55 02 <55 FF <55 01 <55 02 <02 12 <7E", 1},
        {"low address 255 is data", "FF <55 01 <55 02 <02 FF <00", 1},
        {"data 255", "FF <55 02 <55 02 <02 FF <FF FF <FF FF <55", 0},
        {"half frame kept within the gap", "FF <55 01 <55 02 <02 +500 12 <7E", 1},
        {"half frame to read dropped", "FF <55 01 <55 03 <03 +501 02 <02 12 <7E", 1},
        {"half frame to write dropped", "FF <55 02 <55 02 <02 12 <12 +501 FF <55", 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        BoardAndPc rig;
        rig.board.poke(0x0212, 0x7E);
        rig.expect(c.conversation);
        EXPECT_EQ(rig.board.mode(), c.modeAfter);
        EXPECT_EQ(rig.board.peek(0x0212), 0x7E);
    }
}

TEST(BoardProtocol, KeepsACounterAsTwoDecimalWords)
{
    BoardAndPc rig;
    rig.expect("FF <55 02 <55 03 <03 AC <AC 85 <85 03 <03 AD <AD 1A <1A "
               "03 <03 AE <AE 39 <39 03 <03 AF <AF 30 <30");
    EXPECT_EQ(rig.board.peekCounter(940), 123456789U);
    EXPECT_EQ(rig.board.peekWord(940), 6789);
    EXPECT_EQ(rig.board.peekWord(942), 12345);
}

TEST(BoardProtocol, WithoutPowerThereIsSilenceAndAfterwardsNoMode)
{
    BoardAndPc rig;
    rig.expect("FF <55 01 <55");
    rig.board.setPowered(false);
    rig.expect("FF");
    rig.board.setPowered(true);
    EXPECT_EQ(rig.board.mode(), 0);
    rig.expect("02 FF <55");
}

TEST(ProgramLoad, StoresARecordAndAnswersItsSum)
{
    BoardAndPc rig;
    rig.enterLoadMode();
    rig.expect("02 FF 10 FF 80 <90");
    EXPECT_EQ(rig.program(0xFF10), 0xFF);
    EXPECT_EQ(rig.program(0xFF11), 0x80);
    EXPECT_EQ(rig.board.peek(0xFF10), 0); // not a register
    EXPECT_EQ(rig.board.program().recordsTaken, 1u);
}

TEST(ProgramLoad, AttentionEndsItAndTheRequest)
{
    BoardAndPc rig;
    rig.enterLoadMode();
    rig.expect("FF <55 03");
    EXPECT_EQ(rig.board.mode(), 0);
    EXPECT_EQ(rig.board.peek(memory_map::kProgramModeRequest), 0);
}

TEST(ProgramLoad, AHalfRecordIsDroppedAfterTheGap)
{
    BoardAndPc rig;
    rig.enterLoadMode();
    rig.expect("03 00 00 01 +501 01 00 05 09 <0F");
    EXPECT_EQ(rig.program(0), 0);
    EXPECT_EQ(rig.program(5), 9);
}

TEST(ProgramLoad, AGarbledRecordIsAnsweredWrongAndNotStored)
{
    BoardAndPc rig;
    rig.board.program().garbledRecord = 0;
    rig.enterLoadMode();
    rig.expect("01 00 05 09 <10");
    EXPECT_EQ(rig.program(5), 0);
    rig.expect("01 00 05 09 <0F");
}

TEST(LimitSwitchModes, DataAfterTheCommandMayBeAttentionsByte)
{
    BoardAndPc rig;
    rig.board.limitSwitch().busyAnswers = 1;
    rig.expect("FF <55 2A <55 FF <55 00 <55 38 <55 55 <55 38 <55 55 <00 55 <55");
    EXPECT_EQ(rig.board.peekWord(memory_map::kResolverOffset), 0xFF);
    rig.expect("FF <55");
    EXPECT_EQ(rig.board.mode(), 0);
}

TEST(LimitSwitchModes, DataThatStopsIsForgotten)
{
    BoardAndPc rig;
    rig.expect("FF <55 2A <55 11 <55 +501 FF <55"); // attention again
    EXPECT_EQ(rig.board.peekWord(memory_map::kResolverOffset), 15);
}

} // namespace tambrix
