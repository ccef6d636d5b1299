#include "simulator/board_mode.h"

#include "simulator/limit_switch_modes.h"
#include "simulator/program_load_mode.h"

#include <array>
#include <cstddef>

namespace tambrix {

namespace {

constexpr std::uint16_t addressOf(std::uint8_t high, std::uint8_t low)
{
    return static_cast<std::uint16_t>(high << 8 | low);
}

// Frame: address high (echoed), address low (answered with the data byte).
class ReadMode : public BoardMode
{
public:
    explicit ReadMode(const BoardMemory& memory) : m_memory(memory) {}

    int number() const override { return 1; }
    bool atFrameStart() const override { return !m_high; }
    void restartFrame() override { m_high.reset(); }

    std::optional<std::uint8_t> receive(std::uint8_t byte) override
    {
        if (!m_high) {
            m_high = byte;
            return byte;
        }
        const std::uint16_t address = addressOf(*m_high, byte);
        restartFrame();
        return m_memory.byte(address);
    }

private:
    const BoardMemory& m_memory;
    std::optional<std::uint8_t> m_high;
};

// Frame: address high, address low, data, each echoed; the data byte is stored as it arrives.
class WriteMode : public BoardMode
{
public:
    explicit WriteMode(BoardMemory& memory) : m_memory(memory) {}

    int number() const override { return 2; }
    bool atFrameStart() const override { return m_count == 0; }
    void restartFrame() override { m_count = 0; }

    std::optional<std::uint8_t> receive(std::uint8_t byte) override
    {
        m_frame[m_count++] = byte;
        if (m_count == m_frame.size()) {
            m_memory.setByte(addressOf(m_frame[0], m_frame[1]), m_frame[2]);
            restartFrame();
        }
        return byte;
    }

private:
    BoardMemory& m_memory;
    std::array<std::uint8_t, 3> m_frame{};
    std::size_t m_count = 0;
};

} // namespace

std::unique_ptr<BoardMode> makeBoardMode(std::uint8_t command, const BoardParts& board)
{
    switch (command) {
    case 0x01:
        return std::make_unique<ReadMode>(board.memory);
    case 0x02:
        return std::make_unique<WriteMode>(board.memory);
    case ProgramLoadMode::kCommand:
        if (!ProgramLoadMode::requested(board.memory))
            return nullptr;
        return std::make_unique<ProgramLoadMode>(board.memory, board.program);
    default:
        return makeLimitSwitchMode(command, board);
    }
}

} // namespace tambrix
