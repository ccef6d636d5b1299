// The simulated board's edges that no test of the link or of a transfer comes to.

#include "simulator/memory_map.h"
#include "simulator/simulated_board.h"

#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>
#include <string>
#include <utility>

using namespace tambrix;
using namespace tambrix::memory_map;
using std::chrono::milliseconds;

namespace {

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
        {"unknown command ends expectation", "FF <55 07 01 02", 0},
        {"no load without its request", "FF <55 03 00 00 00", 0},
        {"low address 255 is data", "FF <55 01 <55 02 <02 FF <00", 1},
        {"data 255", "FF <55 02 <55 02 <02 FF <FF FF <FF FF <55", 0},
        {"half frame kept within the gap", "FF <55 01 <55 02 <02 +500 12 <7E", 1},
        {"half frame to read dropped", "FF <55 01 <55 03 <03 +501 02 <02 12 <7E", 1},
        {"half frame to write dropped", "FF <55 02 <55 02 <02 12 <12 +501 FF <55", 0},
        {"attention's byte is data of the switch", "FF <55 2A <55 FF <55 00 <55 38 <55 55 <55", 5},
        {"data of the switch that stop", "FF <55 2A <55 11 <55 +501 FF <55", 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        BoardAndPc rig;
        rig.board.poke(0x0212, 0x7E);
        EXPECT_EQ(rig.play(c.conversation), c.conversation);
        EXPECT_EQ(rig.board.mode(), c.modeAfter);
        EXPECT_EQ(rig.board.peek(0x0212), 0x7E);
    }
    BoardAndPc loading;
    loading.board.poke(kProgramModeRequest, 86);
    const std::string halfRecord = "FF <55 03 <55 03 00 00 01 +501 01 00 05 09 <0F";
    EXPECT_EQ(loading.play(halfRecord), halfRecord);
    EXPECT_EQ(loading.board.program().bytes.byte(0), 0);
}
