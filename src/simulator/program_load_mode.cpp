#include "simulator/program_load_mode.h"

#include "simulator/memory_map.h"

#include <numeric>

namespace tambrix {

namespace {

constexpr std::uint8_t kRequest = 86;
constexpr std::size_t kHead = 3; // length, address high, address low

} // namespace

bool ProgramLoadMode::requested(const BoardMemory& memory)
{
    return memory.byte(memory_map::kProgramModeRequest) == kRequest;
}

ProgramLoadMode::ProgramLoadMode(BoardMemory& memory, ProgramMemory& program)
    : m_memory(memory), m_program(program)
{
}

ProgramLoadMode::~ProgramLoadMode()
{
    m_memory.setByte(memory_map::kProgramModeRequest, 0);
}

std::optional<std::uint8_t> ProgramLoadMode::receive(std::uint8_t byte)
{
    m_frame.push_back(byte);
    if (!complete())
        return std::nullopt;
    const std::uint8_t answer = take();
    restartFrame();
    return answer;
}

bool ProgramLoadMode::complete() const
{
    return m_frame.size() >= kHead && m_frame.size() == kHead + m_frame.front();
}

std::uint8_t ProgramLoadMode::take()
{
    const auto sum = static_cast<std::uint8_t>(std::accumulate(m_frame.begin(), m_frame.end(), 0));
    if (m_program.recordsTaken++ == m_program.garbledRecord)
        return static_cast<std::uint8_t>(sum + 1);
    const int address = m_frame[1] << 8 | m_frame[2];
    for (std::size_t i = kHead; i < m_frame.size(); ++i)
        m_program.bytes.setByte(static_cast<std::uint16_t>(address + static_cast<int>(i - kHead)),
                                m_frame[i]);
    return sum;
}

} // namespace tambrix
