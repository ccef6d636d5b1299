#include "link/register_access.h"

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

std::string rangeText(char regLetter)
{
    switch (regLetter) {
    case 'W':
        return "(0-65,535).";
    case 'D':
        return "(0-655,359,999).";
    default:
        return "(0-255).";
    }
}

} // namespace

RegisterAccess::RegisterAccess(ByteExchange& exchange, Operator& person)
    : m_exchange(exchange), m_operator(person)
{
}

std::optional<std::int64_t> RegisterAccess::ReadRegister(std::string_view addr)
{
    if (!prepareRead(addr))
        return std::nullopt;
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
    if (!wasReading && !m_exchange.EnterLinkMode(LinkMode::Read, kReadCommand))
        return false;
    if (!wasReading || !sameIgnoringCase(addr, m_lastReadAddr)) {
        ParseAddress(addr, m_read);
        m_lastReadAddr = addr;
    }
    return true;
}

std::optional<std::uint8_t> RegisterAccess::readByteAt(std::int32_t byteAddress)
{
    if (!m_exchange.echoes(addressHigh(byteAddress)))
        return std::nullopt;
    const int data = m_exchange.exchangeInFrame(addressLow(byteAddress));
    if (data == kNoReply)
        return std::nullopt;
    return static_cast<std::uint8_t>(data);
}

bool RegisterAccess::WriteRegister(std::string_view addr, std::string_view value)
{
    m_writeVerifyFailed = false;
    RegisterAddress address;
    ParseAddress(addr, address);
    const auto number = numberToWrite(address, value);
    return number && fits(address.RegLetter, *number) &&
           writeBytes(address, splitValue(address.RegLetter, *number));
}

bool RegisterAccess::writeWithRetry(std::string_view addr, std::string_view value)
{
    return WriteRegister(addr, value) || (m_writeVerifyFailed && WriteRegister(addr, value));
}

std::optional<std::int64_t> RegisterAccess::numberToWrite(const RegisterAddress& address,
                                                          std::string_view value)
{
    const auto number = entryNumber(value);
    if (!number) {
        entryAlert("Only Numerical Data Allowed.");
        return std::nullopt;
    }
    if (!address.IsBitAddress)
        return number;
    if (*number > 1) {
        entryAlert("Enter 0 or 1 Only.");
        return std::nullopt;
    }
    return withBit(address, *number);
}

std::optional<std::int64_t> RegisterAccess::withBit(const RegisterAddress& address,
                                                    std::int64_t bit)
{
    const auto byte = ReadRegister("B" + std::to_string(address.RegAddress));
    // Without the byte's other seven bits nothing may be written over them.
    m_writeVerifyFailed = !byte.has_value();
    if (!byte)
        return std::nullopt;
    return bit == 1 ? *byte | address.BitMask : *byte & ~std::int64_t{address.BitMask};
}

bool RegisterAccess::fits(char regLetter, std::int64_t number)
{
    if (number <= highestValue(regLetter))
        return true;
    entryAlert("Entry out of Range " + rangeText(regLetter));
    return false;
}

bool RegisterAccess::writeBytes(const RegisterAddress& address, const ValueBytes& bytes)
{
    if (m_exchange.mode() != LinkMode::Write &&
        !m_exchange.EnterLinkMode(LinkMode::Write, kWriteCommand))
        return false;
    for (int i = 0; i < registerWidth(address.RegLetter) && !m_writeVerifyFailed; ++i)
        m_writeVerifyFailed =
            !writeByteAt(address.RegAddress + i, bytes[static_cast<std::size_t>(i)]);
    return !m_writeVerifyFailed;
}

bool RegisterAccess::writeByteAt(std::int32_t byteAddress, std::uint8_t data)
{
    return m_exchange.echoes(addressHigh(byteAddress)) &&
           m_exchange.echoes(addressLow(byteAddress)) && m_exchange.echoes(data);
}

void RegisterAccess::entryAlert(const std::string& text)
{
    m_operator.showMessage({BoxIcon::Critical, BoxButtons::Ok, "ENTRY ALERT", "Error:\r" + text});
}

} // namespace tambrix
