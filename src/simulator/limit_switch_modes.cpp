#include "simulator/limit_switch_modes.h"

#include "simulator/limit_switch_model.h"
#include "simulator/memory_map.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>
#include <vector>

namespace tambrix {

namespace {

using namespace memory_map;
using Bytes = std::vector<std::uint8_t>;

constexpr std::uint8_t kNext = 0x55;
constexpr std::uint8_t kAcknowledge = 0x55;
constexpr std::uint8_t kStatusPoll = 0x38;
constexpr std::uint8_t kStored = 0;

std::uint16_t wordAt(const Bytes& bytes, std::size_t index)
{
    return static_cast<std::uint16_t>(bytes[index] | bytes[index + 1] << 8);
}

Bytes wordBytes(std::uint16_t word)
{
    return {static_cast<std::uint8_t>(word & 0xFF), static_cast<std::uint8_t>(word >> 8)};
}

// Gives its bytes one by one, each for one 0x55.
class GivingMode : public BoardMode
{
public:
    GivingMode(int number, Bytes bytes) : m_number(number), m_bytes(std::move(bytes)) {}

    int number() const override { return m_number; }
    bool atFrameStart() const override { return true; }
    void restartFrame() override {}

    std::optional<std::uint8_t> receive(std::uint8_t byte) override
    {
        if (byte != kNext || m_given == m_bytes.size())
            return std::nullopt;
        return m_bytes[m_given++];
    }

protected:
    void give(Bytes bytes) { m_bytes = std::move(bytes); }

private:
    int m_number;
    Bytes m_bytes;
    std::size_t m_given = 0;
};

// A channel number, then what the switch knows of that channel.
class RecallMode : public GivingMode
{
public:
    explicit RecallMode(const LimitSwitchModel& model) : GivingMode(6, {}), m_model(model) {}

    bool atFrameStart() const override { return m_chosen; }
    void restartFrame() override { m_chosen = true; }

    std::optional<std::uint8_t> receive(std::uint8_t byte) override
    {
        if (m_chosen)
            return GivingMode::receive(byte);
        m_chosen = true;
        const auto found = m_model.channels.find(byte);
        const auto channel =
            found == m_model.channels.end() ? LimitSwitchModel::Channel{} : found->second;
        Bytes answer = wordBytes(channel.a);
        answer.insert(answer.begin(), channel.used ? 1 : 0);
        give(answer);
        return kAcknowledge;
    }

private:
    const LimitSwitchModel& m_model;
    bool m_chosen = false;
};

// Takes data bytes, stores them, and answers for a while that it is busy. The switch waits for
// its data right after the command: 0xFF is a byte like any other there.
class ProgrammingMode : public BoardMode
{
public:
    using Store = std::function<void(const Bytes&)>;

    ProgrammingMode(int number, std::size_t size, int busyAnswers, Store store)
        : m_number(number), m_size(size), m_busyLeft(busyAnswers), m_store(std::move(store))
    {
    }

    int number() const override { return m_number; }
    bool atFrameStart() const override { return m_dropped || stored(); }
    void restartFrame() override { m_dropped = !stored(); }

    std::optional<std::uint8_t> receive(std::uint8_t byte) override
    {
        if (m_dropped)
            return std::nullopt;
        return stored() ? state(byte) : data(byte);
    }

private:
    bool stored() const { return m_data.size() == m_size; }

    std::uint8_t data(std::uint8_t byte)
    {
        m_data.push_back(byte);
        if (stored())
            m_store(m_data);
        return kAcknowledge;
    }

    std::optional<std::uint8_t> state(std::uint8_t byte)
    {
        if (!std::exchange(m_asked, false)) {
            m_asked = byte == kStatusPoll;
            return m_asked || byte == kNext ? std::optional(kAcknowledge) : std::nullopt;
        }
        if (byte != kNext)
            return std::nullopt;
        return m_busyLeft-- > 0 ? kAcknowledge : kStored;
    }

    int m_number;
    std::size_t m_size;
    int m_busyLeft;
    Store m_store;
    Bytes m_data;
    bool m_asked = false;
    bool m_dropped = false; // the data never came: nothing is stored
};

std::unique_ptr<BoardMode> parameter(std::uint16_t address, const BoardParts& board)
{
    return std::make_unique<GivingMode>(4, wordBytes(board.memory.word(address)));
}

std::unique_ptr<BoardMode> programming(int number, std::size_t size, const BoardParts& board,
                                       ProgrammingMode::Store store)
{
    return std::make_unique<ProgrammingMode>(number, size, board.limitSwitch.busyAnswers,
                                             std::move(store));
}

// Data: channel, a, b (words, low byte first), flag.
std::unique_ptr<BoardMode> channel(bool train, const BoardParts& board)
{
    return programming(3, 6, board, [train, &model = board.limitSwitch](const Bytes& data) {
        model.channels[data[0]] = {train, train || data[5] != 0, wordAt(data, 1), wordAt(data, 3)};
    });
}

std::unique_ptr<BoardMode> value(std::uint16_t address, const BoardParts& board)
{
    return programming(5, 2, board, [address, &memory = board.memory](const Bytes& data) {
        memory.setWord(address, wordAt(data, 0));
    });
}

std::unique_ptr<BoardMode> block(int index, const BoardParts& board)
{
    constexpr std::size_t kEntries = 6;
    const std::size_t first = static_cast<std::size_t>(index) * kEntries;
    return programming(7, kEntries, board, [first, &model = board.limitSwitch](const Bytes& data) {
        std::ranges::copy(
            data, std::next(model.configuration.begin(), static_cast<std::ptrdiff_t>(first)));
    });
}

std::unique_ptr<BoardMode> upload(const BoardParts& board)
{
    const auto& bytes = board.limitSwitch.configuration;
    return std::make_unique<GivingMode>(8, Bytes(bytes.begin(), bytes.end()));
}

} // namespace

std::unique_ptr<BoardMode> makeLimitSwitchMode(std::uint8_t command, const BoardParts& board)
{
    switch (command) {
    case 24:
        return parameter(kResolverScale, board);
    case 40:
        return parameter(kResolverOffset, board);
    case 72:
        return parameter(kResolverPos, board);
    case 88:
        return parameter(kResolverRpm, board);
    case 27:
    case 43:
        return channel(command == 43, board);
    case 42:
        return value(kResolverOffset, board);
    case 26:
        return value(kResolverScale, board);
    case 59:
    case 75:
    case 91:
    case 107:
        return block((command - 59) / 16, board);
    case 12:
        return upload(board);
    case 9:
        return std::make_unique<RecallMode>(board.limitSwitch);
    default:
        return nullptr;
    }
}

} // namespace tambrix
