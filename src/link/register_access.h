#pragma once

#include "link/byte_exchange.h"
#include "link/register_address.h"
#include "link/register_value.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tambrix {

/// Reads and writes the board's registers by address string, byte by byte.
class RegisterAccess
{
public:
    RegisterAccess(ByteExchange& exchange, Operator& person);

    /// The register's value in decimal, or nothing when the board did not give it.
    /// Per byte: address-high -> its echo, address-low -> the data byte.
    std::optional<std::int64_t> ReadRegister(std::string_view addr);

    /// Checks `value` (an entry text) and writes it; refuses with an "ENTRY ALERT" box what is no
    /// number or does not fit. A bit is written by reading its byte first. Returns whether the
    /// board has sent back every byte as it should.
    /// Per byte: address-high, address-low and data, each echoed.
    bool WriteRegister(std::string_view addr, std::string_view value);

    /// The same, and the whole value once more when a byte did not come back as sent.
    bool writeWithRetry(std::string_view addr, std::string_view value);

    /// A byte sent during the last write did not come back as sent: the board may hold anything.
    bool writeVerifyFailed() const { return m_writeVerifyFailed; }

private:
    bool prepareRead(std::string_view addr);
    std::optional<std::uint8_t> readByteAt(std::int32_t byteAddress);
    std::optional<std::int64_t> numberToWrite(const RegisterAddress& address,
                                              std::string_view value);
    std::optional<std::int64_t> withBit(const RegisterAddress& address, std::int64_t bit);
    bool fits(char regLetter, std::int64_t number);
    bool writeBytes(const RegisterAddress& address, const ValueBytes& bytes);
    bool writeByteAt(std::int32_t byteAddress, std::uint8_t data);
    void entryAlert(const std::string& text);

    ByteExchange& m_exchange;
    Operator& m_operator;
    std::string m_lastReadAddr; ///< read cache: one register polled over and over is parsed once
    RegisterAddress m_read;
    bool m_writeVerifyFailed = false;
};

} // namespace tambrix
