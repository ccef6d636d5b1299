#include "link/board_names.h"

#include "link/text.h"

#include <array>

namespace tambrix {

namespace {

struct Board
{
    const char* name;
    const char* libraryIndex;
};

constexpr std::int16_t kFirstCode = 49;

// By type code from 49 on. kept: R110 and R120 share one library; of a model with a PLC and a PLS
// variant only the PLC has one.
constexpr std::array kBoards = {
    Board{"R110", "1"},      Board{"R120", "1"},      Board{"R130", "?"},
    Board{"R210", "2"},      Board{"R220", "3"},      Board{"R140", "D"},
    Board{"R410", ""},       Board{"R240", "F"},      Board{"Not Defined", ""},
    Board{"Q710", "@"},      Board{"Q711", "A"},      Board{"Q712", "B"},
    Board{"Q720(PLC)", "C"}, Board{"Q720(PLS)", ""},  Board{"Q740", ""},
    Board{"Q741", ""},       Board{"H810", "E"},      Board{"Q721(PLC)", ""},
    Board{"Q721(PLS)", ""},  Board{"Q900(PLC)", "G"}, Board{"Q900(PLS)", ""},
};

const Board* findBoard(std::int16_t type)
{
    const int index = type - kFirstCode;
    return index >= 0 && index < static_cast<int>(kBoards.size())
               ? &kBoards[static_cast<std::size_t>(index)]
               : nullptr;
}

} // namespace

std::string TargetboardName(std::int16_t BoardType)
{
    const Board* board = findBoard(BoardType);
    return board != nullptr
               ? board->name
               : utf8Character(static_cast<std::uint8_t>(BoardType)) + " Is Not Defined.";
}

std::string LCFBoardIndex(std::int16_t BoardType)
{
    const Board* board = findBoard(BoardType);
    return board != nullptr ? board->libraryIndex : "";
}

} // namespace tambrix
