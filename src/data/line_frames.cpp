#include "data/line_frames.h"

#include "data/parameters.h"
#include "link/byte_exchange.h"
#include "link/register_address.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tambrix {

namespace {

constexpr std::int16_t kReadCommand = 0x01;
constexpr std::int16_t kWriteCommand = 0x02;
constexpr std::int16_t kLoadCommand = 0x03;

/// In the order of the modes; those without a name last for an exchange at most.
constexpr std::array<std::string_view, 6> kModeNames = {"",      "",        "read",
                                                        "write", "program", "other"};

/// One of the two bytes of the passcode's word.
bool isPasscode(std::uint16_t byteAddress)
{
    static const int kFirst = [] {
        RegisterAddress address;
        ParseAddress(reg::kPasscode.address, address);
        return address.RegAddress;
    }();
    return byteAddress == kFirst || byteAddress == kFirst + 1;
}

} // namespace

std::string_view LineFrames::mode() const
{
    return kModeNames[static_cast<std::size_t>(m_mode)];
}

bool LineFrames::beginIn(std::string_view mode)
{
    const auto found = std::find(kModeNames.begin(), kModeNames.end(), mode);
    if (mode.empty() || found == kModeNames.end())
        return false;
    *this = LineFrames();
    m_mode = static_cast<Mode>(found - kModeNames.begin());
    return true;
}

LineRole LineFrames::take(const LineExchange& exchange)
{
    const bool resend = std::exchange(m_unanswered, exchange.in == kNoByte);
    m_well = exchange.in != kNoByte;
    if (exchange.out == kNoByte) {
        m_well = false;
        m_unanswered = false;
        return LineRole::Other;
    }
    if (exchange.out == kAttention && m_inFrame == 0) {
        m_well = exchange.in == kAcknowledge;
        m_mode = m_well && !resend ? Mode::Command : Mode::None;
        return resend ? LineRole::Resend : LineRole::Attention;
    }
    if (m_mode == Mode::Command)
        return command(exchange);
    if (m_mode == Mode::Read || m_mode == Mode::Write)
        return frameByte(exchange);
    if (m_mode != Mode::Program)
        return LineRole::Other;
    m_well = true; // only the last byte of a record is answered
    m_unanswered = false;
    return LineRole::Record;
}

LineRole LineFrames::command(const LineExchange& exchange)
{
    m_well = exchange.in == kAcknowledge;
    if (!m_well)
        m_mode = Mode::None;
    else if (exchange.out == kReadCommand)
        m_mode = Mode::Read;
    else if (exchange.out == kWriteCommand)
        m_mode = Mode::Write;
    else
        m_mode = exchange.out == kLoadCommand ? Mode::Program : Mode::Other;
    return LineRole::Mode;
}

LineRole LineFrames::frameByte(const LineExchange& exchange)
{
    const int place = m_inFrame++;
    m_writing = m_mode == Mode::Write;
    const bool last = place == (writing() ? 2 : 1);
    const bool echo = writing() || !last;
    m_well = echo ? exchange.in == exchange.out : exchange.in != kNoByte;
    const auto byte = static_cast<std::uint16_t>(exchange.out & 0xFF);
    if (place == 0)
        m_address = static_cast<std::uint16_t>(byte << 8);
    else if (place == 1)
        m_address = static_cast<std::uint16_t>(m_address | byte);
    if (last || !m_well)
        m_inFrame = 0;
    if (!m_well)
        m_mode = Mode::None;
    constexpr LineRole kRoles[] = {LineRole::AddressHigh, LineRole::AddressLow, LineRole::Data};
    return kRoles[place];
}

/// A byte of the passcode may also come late, in place of another answer or unasked: until a frame
/// begins well, what is no answer of the line's own is masked.
LineExchange PasscodeMask::masked(LineExchange exchange)
{
    const LineRole role = m_frames.take(exchange);
    const bool inFrame = role == LineRole::AddressLow || role == LineRole::Data;
    const bool data = role == LineRole::Data || (inFrame && !m_frames.writing());
    const bool echo = m_frames.answeredWell() && (inFrame || role == LineRole::AddressHigh);
    const bool secret = data && isPasscode(m_frames.address());
    m_guarded = secret || (m_guarded && !(echo && role == LineRole::AddressHigh));
    const bool harmless = exchange.in == kNoByte || exchange.in == kAcknowledge || echo;
    if (secret && role == LineRole::Data)
        exchange.out = kSecretByte;
    if (exchange.in != kNoByte && (secret || (m_guarded && !harmless)))
        exchange.in = kSecretByte;
    return exchange;
}

} // namespace tambrix
