#include "simulator/board_clock.h"

#include "simulator/memory_map.h"

#include <array>
#include <cstddef>

namespace tambrix {

namespace {

using namespace memory_map;

int daysInMonth(int month, int year)
{
    constexpr std::array<int, 13> kDays{31, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month == 2 && year % 4 == 0) // right for 2000 to 2099, all that two digits can say
        return 29;
    return month < 13 ? kDays[static_cast<std::size_t>(month)] : 31;
}

// Steps one register; past `last` it starts again at `first` and the next one is to be stepped.
bool carries(BoardMemory& memory, std::uint16_t address, int first, int last)
{
    const int next = memory.byte(address) + 1;
    memory.setByte(address, static_cast<std::uint8_t>(next > last ? first : next));
    return next > last;
}

void tickCalendar(BoardMemory& memory)
{
    const int days = daysInMonth(memory.byte(kCalendarMonth), memory.byte(kCalendarYear));
    if (carries(memory, kCalendarDay, 1, days) && carries(memory, kCalendarMonth, 1, 12))
        carries(memory, kCalendarYear, 0, 99);
}

} // namespace

void tickBoardClock(BoardMemory& memory)
{
    if (carries(memory, kClockSecond, 0, 59) && carries(memory, kClockMinute, 0, 59) &&
        carries(memory, kClockHour, 0, 23))
        tickCalendar(memory);
}

} // namespace tambrix
