#include "data/setup_file.h"

#include <optional>

namespace tambrix {

namespace {

constexpr std::uint16_t kDimensions = 1;
constexpr std::uint32_t kLowerBound = 0;
constexpr std::size_t kLongestText = 0xFFFF;
constexpr std::size_t kTextPrefix = sizeof(std::uint16_t);

class Writer
{
public:
    template <typename Number> void number(Number value)
    {
        for (std::size_t i = 0; i < sizeof value; ++i)
            bytes += static_cast<char>(static_cast<std::uint64_t>(value) >> (8 * i));
    }

    void text(std::string_view characters)
    {
        const std::string_view kept = characters.substr(0, kLongestText);
        number(static_cast<std::uint16_t>(kept.size()));
        bytes += kept;
    }

    void arrayHead(std::size_t elements)
    {
        number(kDimensions);
        number(static_cast<std::uint32_t>(elements));
        number(kLowerBound);
    }

    std::string bytes;
};

/// Takes the bytes from the front. The first thing that is wrong stays in `fault`; from then on
/// everything reads as zero or empty.
class Reader
{
public:
    explicit Reader(std::string_view bytes) : m_left(bytes) {}

    template <typename Number> Number number()
    {
        const std::string_view raw = take(sizeof(Number));
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < raw.size(); ++i)
            value |= std::uint64_t{static_cast<unsigned char>(raw[i])} << (8 * i);
        return static_cast<Number>(value);
    }

    std::string text() { return std::string(take(number<std::uint16_t>())); }

    /// The element count of an array whose elements take at least `smallest` bytes each.
    std::size_t arrayHead(std::size_t smallest)
    {
        const auto dimensions = number<std::uint16_t>();
        if (dimensions != kDimensions)
            fail(SetupFileFault::NotOneDimension);
        const std::size_t elements = number<std::uint32_t>();
        if (number<std::uint32_t>() != kLowerBound)
            fail(SetupFileFault::NotFromZero);
        if (elements > m_left.size() / smallest)
            fail(SetupFileFault::Truncated);
        return fault ? 0 : elements;
    }

    std::optional<SetupFileFault> fault;

private:
    std::string_view take(std::size_t count)
    {
        if (count > m_left.size())
            fail(SetupFileFault::Truncated);
        if (fault)
            return {};
        const std::string_view taken = m_left.substr(0, count);
        m_left.remove_prefix(count);
        return taken;
    }

    void fail(SetupFileFault reason)
    {
        if (!fault)
            fault = reason;
    }

    std::string_view m_left;
};

} // namespace

std::string setupFileBytes(const SetupDataRecord& record)
{
    Writer file;
    file.text(record.Version);
    file.arrayHead(record.Address.size());
    for (const std::string& address : record.Address)
        file.text(address);
    file.arrayHead(record.Value.size());
    for (const std::int32_t value : record.Value)
        file.number(value);
    return file.bytes;
}

std::variant<SetupDataRecord, SetupFileFault> readSetupFile(std::string_view bytes)
{
    Reader file(bytes);
    SetupDataRecord record;
    record.Version = file.text();
    record.Address.resize(file.arrayHead(kTextPrefix));
    for (std::string& address : record.Address)
        address = file.text();
    record.Value.resize(file.arrayHead(sizeof(std::int32_t)));
    for (std::int32_t& value : record.Value)
        value = file.number<std::int32_t>();
    if (file.fault)
        return *file.fault;
    return record;
}

} // namespace tambrix
