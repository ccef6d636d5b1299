#include "link/register_access.h"

#include "link/board_registers.h"
#include "link/lenient_number.h"

namespace tambrix {

namespace {

constexpr std::uint8_t kReadCommand = 0x01;
constexpr std::uint8_t kWriteCommand = 0x02;

std::uint8_t addressHigh(std::int32_t byteAddress)
{
    return static_cast<std::uint8_t>(byteAddress >> 8);
}

std::uint8_t addressLow(std::int32_t byteAddress)
{
    return static_cast<std::uint8_t>(byteAddress);
}

} // namespace

RegisterAccess::RegisterAccess(ByteExchange& exchange, Operator& person, LinkObservers& observers)
    : m_exchange(exchange), m_operator(person), m_observers(observers)
{
}

std::optional<std::int64_t> RegisterAccess::ReadRegister(std::string_view addr)
{
    m_frameExpired = false;
    auto value = prepareRead(addr) ? readValue() : std::nullopt;
    if (m_frameExpired) // nothing was wrong but the time: once more
        value = prepareRead(addr) ? readValue() : std::nullopt;
    if (!m_observers.empty())
        m_observers.tell(&LinkObserver::registerRead, addr, std::to_string(value.value_or(0)),
                         value.has_value());
    return value;
}

std::optional<std::int64_t> RegisterAccess::readValue()
{
    ValueBytes bytes{};
    for (int i = 0; i < registerWidth(m_read.RegLetter); ++i) {
        const auto data = readByteAt(m_read.RegAddress + i);
        if (!data)
            return std::nullopt;
        bytes[static_cast<std::size_t>(i)] = *data;
    }
    return composeValue(m_read, bytes);
}

bool RegisterAccess::prepareRead(std::string_view addr)
{
    const bool wasReading = m_exchange.mode() == LinkMode::Read;
    if (!wasReading || !sameIgnoringCase(addr, m_lastReadAddr)) {
        ParseAddress(addr, m_read);
        m_lastReadAddr = addr;
    }
    return isReachable(m_read) &&
           (wasReading || m_exchange.EnterLinkMode(LinkMode::Read, kReadCommand));
}

std::optional<std::uint8_t> RegisterAccess::readByteAt(std::int32_t byteAddress)
{
    if (!m_exchange.echoes(addressHigh(byteAddress), {ByteUse::AddressHigh, {}, byteAddress}) ||
        !frameGoesOn())
        return std::nullopt;
    const int data =
        m_exchange.exchangeInFrame(addressLow(byteAddress), {ByteUse::AddressLow, {}, byteAddress});
    if (data == kNoReply)
        return std::nullopt;
    return static_cast<std::uint8_t>(data);
}

bool RegisterAccess::WriteRegister(std::string_view addr, std::string_view value)
{
    m_writeVerifyFailed = false;
    RegisterAddress address;
    ParseAddress(addr, address);
    if (!isReachable(address))
        return false;
    if (const auto reason = entryRefusal(address, value)) {
        entryAlert(*reason);
        return false;
    }
    const std::int64_t number = entryNumber(value).value_or(0);
    if (address.IsBitAddress)
        return writeBit(address, number == 1);
    return enterWriteMode() && writeBytes(address, splitValue(address.RegLetter, number));
}

bool RegisterAccess::writeWithRetry(std::string_view addr, std::string_view value)
{
    const bool written =
        WriteRegister(addr, value) || (m_writeVerifyFailed && WriteRegister(addr, value));
    if (!m_observers.empty())
        m_observers.tell(&LinkObserver::registerWritten, addr, value, written);
    return written;
}

bool RegisterAccess::writeBit(const RegisterAddress& address, bool set)
{
    constexpr int kTries = 2;
    const std::string byteName = byteRegister(address.RegAddress);
    for (int i = 0; i < kTries; ++i) {
        const auto byte = ReadRegister(byteName);
        // kept: the other seven bits are the ductors' or the operator's next to this one. Where
        // the board did not take the next mode at once, the answers may have been out of step
        // while the byte was read: it is read again, and without it nothing is written.
        if (!byte || !enterWriteMode() || !m_exchange.enteredAtOnce())
            continue;
        const std::int64_t mask = address.BitMask;
        return writeBytes(address, splitValue('B', set ? *byte | mask : *byte & ~mask));
    }
    m_writeVerifyFailed = true;
    return false;
}

bool RegisterAccess::enterWriteMode()
{
    return m_exchange.mode() == LinkMode::Write ||
           m_exchange.EnterLinkMode(LinkMode::Write, kWriteCommand);
}

bool RegisterAccess::writeBytes(const RegisterAddress& address, const ValueBytes& bytes)
{
    for (int i = 0; i < registerWidth(address.RegLetter) && !m_writeVerifyFailed; ++i)
        m_writeVerifyFailed =
            !writeByteAt(address.RegAddress + i, bytes[static_cast<std::size_t>(i)]);
    return !m_writeVerifyFailed;
}

bool RegisterAccess::writeByteAt(std::int32_t byteAddress, std::uint8_t data)
{
    return m_exchange.echoes(addressHigh(byteAddress), {ByteUse::AddressHigh, {}, byteAddress}) &&
           frameGoesOn() &&
           m_exchange.echoes(addressLow(byteAddress), {ByteUse::AddressLow, {}, byteAddress}) &&
           frameGoesOn() && m_exchange.echoes(data, {ByteUse::Data, {}, byteAddress});
}

bool RegisterAccess::frameGoesOn()
{
    if (m_exchange.frameIsAlive())
        return true;
    m_frameExpired = true;
    m_exchange.abandonFrame();
    return false;
}

void RegisterAccess::entryAlert(const std::string& text)
{
    m_operator.showMessage({BoxIcon::Critical, BoxButtons::Ok, "ENTRY ALERT", "Error:\r" + text});
}

} // namespace tambrix
