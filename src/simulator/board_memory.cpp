#include "simulator/board_memory.h"

namespace tambrix {

namespace {

constexpr std::uint32_t kCounterBase = 10000;
constexpr std::uint32_t kCounterEnd = 65536 * kCounterBase;

constexpr std::uint16_t after(std::uint16_t address, int bytes)
{
    return static_cast<std::uint16_t>(address + bytes);
}

} // namespace

void BoardMemory::setBits(std::uint16_t address, std::uint8_t mask, bool on)
{
    const int cleared = byte(address) & ~mask;
    setByte(address, static_cast<std::uint8_t>(on ? cleared | mask : cleared));
}

std::uint16_t BoardMemory::word(std::uint16_t address) const
{
    return static_cast<std::uint16_t>(byte(after(address, 1)) << 8 | byte(address));
}

void BoardMemory::setWord(std::uint16_t address, std::uint16_t value)
{
    setByte(address, static_cast<std::uint8_t>(value & 0xFF));
    setByte(after(address, 1), static_cast<std::uint8_t>(value >> 8));
}

std::uint32_t BoardMemory::counter(std::uint16_t address) const
{
    return word(after(address, 2)) * kCounterBase + word(address);
}

void BoardMemory::setCounter(std::uint16_t address, std::uint32_t value)
{
    const std::uint32_t kept = value % kCounterEnd;
    setWord(address, static_cast<std::uint16_t>(kept % kCounterBase));
    setWord(after(address, 2), static_cast<std::uint16_t>(kept / kCounterBase));
}

} // namespace tambrix
