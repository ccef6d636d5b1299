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
    RegisterAccess(ByteExchange& exchange, Operator& person, LinkObservers& observers);

    /// The register's value in decimal, or nothing when the board did not give it, or when the
    /// wire cannot name all of the register's bytes.
    /// Per byte: address-high -> its echo, address-low -> the data byte.
    std::optional<std::int64_t> ReadRegister(std::string_view addr);

    /// Checks `value` (an entry text) and writes it; refuses with an "ENTRY ALERT" box what is no
    /// number or does not fit, and without a word what the wire cannot name. A bit is written by
    /// reading its byte first; nothing is written unless that read is beyond doubt. Returns
    /// whether the board has sent back every byte as it should.
    /// Per byte: address-high, address-low and data, each echoed.
    bool WriteRegister(std::string_view addr, std::string_view value);

    /// The same, and the whole value once more when a byte did not come back as it should.
    bool writeWithRetry(std::string_view addr, std::string_view value);

    /// A byte sent during the last write did not come back as sent: the board may hold anything.
    bool writeVerifyFailed() const { return m_writeVerifyFailed; }

private:
    bool prepareRead(std::string_view addr);
    std::optional<std::int64_t> readValue();
    bool frameGoesOn();
    std::optional<std::uint8_t> readByteAt(std::int32_t byteAddress);
    bool writeBit(const RegisterAddress& address, bool set);
    bool enterWriteMode();
    bool writeBytes(const RegisterAddress& address, const ValueBytes& bytes);
    bool writeByteAt(std::int32_t byteAddress, std::uint8_t data);
    void entryAlert(const std::string& text);

    ByteExchange& m_exchange;
    Operator& m_operator;
    LinkObservers& m_observers;
    std::string m_lastReadAddr; ///< read cache: one register polled over and over is parsed once
    RegisterAddress m_read;
    bool m_writeVerifyFailed = false;
    bool m_frameExpired =
        false; ///< an answer came so late that the board may have dropped its frame
};

} // namespace tambrix
