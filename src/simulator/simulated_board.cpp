#include "simulator/simulated_board.h"

#include "simulator/board_image.h"

namespace tambrix {

namespace {

constexpr std::uint8_t kAttention = 0xFF;
constexpr std::uint8_t kAcknowledge = 0x55;

} // namespace

SimulatedBoard::SimulatedBoard(SimTime start) : m_memory(makeBoardImage()), m_press(m_memory, start)
{
}

std::optional<std::uint8_t> SimulatedBoard::receive(std::uint8_t byte, SimTime now)
{
    advanceTo(now);
    if (!m_powered)
        return std::nullopt;
    if (m_mode && now - m_lastByte > m_frameGap)
        m_mode->restartFrame();
    m_lastByte = now;
    const std::optional<std::uint8_t> reply = answer(byte);
    m_press.serveRequests();
    return reply;
}

void SimulatedBoard::advanceTo(SimTime now)
{
    m_press.advanceTo(now);
}

void SimulatedBoard::poke(std::uint16_t address, std::uint8_t value)
{
    m_memory.setByte(address, value);
    m_press.serveRequests();
}

void SimulatedBoard::pokeWord(std::uint16_t address, std::uint16_t value)
{
    m_memory.setWord(address, value);
    m_press.serveRequests();
}

void SimulatedBoard::setPowered(bool on)
{
    m_powered = on;
    m_mode.reset();
    m_awaitsCommand = false;
}

std::optional<std::uint8_t> SimulatedBoard::answer(std::uint8_t byte)
{
    const bool betweenFrames = !m_mode || m_mode->atFrameStart();
    if (betweenFrames && byte == kAttention)
        return attention();
    if (m_awaitsCommand)
        return enterMode(byte);
    return m_mode ? m_mode->receive(byte) : std::nullopt;
}

std::optional<std::uint8_t> SimulatedBoard::attention()
{
    m_mode.reset();
    m_awaitsCommand = true;
    return kAcknowledge;
}

std::optional<std::uint8_t> SimulatedBoard::enterMode(std::uint8_t command)
{
    m_awaitsCommand = false;
    m_mode = makeBoardMode(command, {m_memory, m_program, m_limitSwitch});
    return m_mode ? std::optional(kAcknowledge) : std::nullopt;
}

} // namespace tambrix
