#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tambrix {

/// The board's 64 KiB of byte registers. Every address exists; a value that starts at the last
/// byte wraps to the first.
class BoardMemory
{
public:
    std::uint8_t byte(std::uint16_t address) const { return m_bytes[address]; }
    void setByte(std::uint16_t address, std::uint8_t value) { m_bytes[address] = value; }

    /// Whether any bit of `mask` is set in the byte.
    bool any(std::uint16_t address, std::uint8_t mask) const { return (byte(address) & mask) != 0; }
    void setBits(std::uint16_t address, std::uint8_t mask, bool on);

    /// Two bytes, low byte first.
    std::uint16_t word(std::uint16_t address) const;
    void setWord(std::uint16_t address, std::uint16_t value);

    /// Two words: the one at the address holds value mod 10000, the next one value / 10000.
    /// Counts up to 655,359,999 and then starts again at 0.
    std::uint32_t counter(std::uint16_t address) const;
    void setCounter(std::uint16_t address, std::uint32_t value);

    std::span<const std::uint8_t> bytes() const { return m_bytes; }

private:
    static constexpr std::size_t kSize = 65536;

    std::vector<std::uint8_t> m_bytes = std::vector<std::uint8_t>(kSize);
};

} // namespace tambrix
