#include "simulator/board_image.h"

#include "simulator/memory_map.h"

#include <algorithm>
#include <string_view>

namespace tambrix {

namespace {

using namespace memory_map;

constexpr int kLongestCycle = 500; // 0.1 cans
constexpr int kLongestOn = 200;    // 0.1 cans
constexpr int kShortestRest = 60;  // 0.1 cans that a ductor needs between two strokes
constexpr int kIdleCycle = 200;    // 0.1 cans, CYCLE of a ductor that a label does not use
constexpr std::string_view kName = "DUCTCTRL";

struct DuctorWork
{
    int on = 0;             // 0.1 cans
    int cycle = kIdleCycle; // 0.1 cans
};

// A label uses some of the inks, with more or less of each; steps of 5 and 10 are what printers
// dial in. Label 0 is the test label: all inks.
DuctorWork workOf(int label, int ductor)
{
    const int pick = (label * 37 + ductor * 53 + label * ductor * 11) % 97;
    if (label != 0 && pick % 5 == 0)
        return {};
    const int cycle = 120 + 10 * ((pick * 7) % 39);
    const int mostOn = std::min(kLongestOn, cycle - kShortestRest);
    return {std::min(20 + 5 * (pick % 29), mostOn), cycle};
}

void setUpParameters(BoardMemory& memory)
{
    memory.setWord(kMaxCycle, kLongestCycle);
    memory.setByte(kMaxOn, kLongestOn);
    memory.setByte(kResponseTime, 25);
    memory.setByte(kColorGain, 100);
    memory.setByte(kFeedbackEnable, 0xFF);
    memory.setWord(kLabelNumber, 0);
    memory.setWord(kOnResponse, 18);
    memory.setWord(kOffResponse, 23);
    memory.setWord(kPasscode, 1234);
    memory.setByte(kStation, 1);
}

void setUpLabels(BoardMemory& memory)
{
    for (int label = 0; label < kLabels; ++label) {
        for (int ductor = 0; ductor < kDuctors; ++ductor) {
            const DuctorWork work = workOf(label, ductor);
            memory.setByte(labelOn(label, ductor), static_cast<std::uint8_t>(work.on));
            memory.setWord(labelCycle(label, ductor), static_cast<std::uint16_t>(work.cycle));
        }
    }
    for (int ductor = 0; ductor < kDuctors; ++ductor) {
        memory.setByte(workingOn(ductor), memory.byte(labelOn(0, ductor)));
        memory.setWord(workingCycle(ductor), memory.word(labelCycle(0, ductor)));
    }
}

void setUpPress(BoardMemory& memory)
{
    memory.setByte(kInputs, kInputAuto | kInputAutoOn | kInputSetUpEnable);
    memory.setBits(kLabelSelectFlags, kLabelSelect, true);
    memory.setWord(kResolverScale, 360);
    memory.setWord(kResolverOffset, 15);
    for (int ductor = 0; ductor < kDuctors; ++ductor)
        memory.setCounter(shiftCount(ductor), static_cast<std::uint32_t>(9300 + 1117 * ductor));
}

void setUpBoard(BoardMemory& memory)
{
    memory.setByte(kFirmwareRevision, 14);
    memory.setByte(kLastFault, 0x45); // the user program once stopped itself
    memory.setByte(kLastCommError, 0x12);
    memory.setByte(kNetworkAddress1, 1);
    memory.setByte(kNetworkAddress2, 2);
    memory.setByte(kConfigurationC, 20);
    memory.setByte(kConfigurationB, 8);
    memory.setByte(kConfigurationA, 12);
    memory.setByte(kClockHour, 6);
    memory.setByte(kCalendarDay, 4);
    memory.setByte(kCalendarMonth, 3);
    memory.setByte(kCalendarYear, 24);
    std::uint16_t address = kProgramName;
    for (const char character : kName)
        memory.setByte(address++, static_cast<std::uint8_t>(character));
    memory.setByte(kProgramChecksum, 0x5A);
    memory.setByte(kProgramRevision, 3);
}

} // namespace

BoardMemory makeBoardImage()
{
    BoardMemory memory;
    setUpParameters(memory);
    setUpLabels(memory);
    setUpPress(memory);
    setUpBoard(memory);
    return memory;
}

} // namespace tambrix
