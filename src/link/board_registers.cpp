#include "link/board_registers.h"

#include "link/register_address.h"

namespace tambrix {

namespace {

constexpr std::int32_t kPasscodeEnd = board_registers::kPasscode + 2;

} // namespace

std::string byteRegister(std::int32_t byteAddress)
{
    return "B" + std::to_string(byteAddress);
}

bool isSecretByte(std::int32_t byteAddress)
{
    return byteAddress >= board_registers::kPasscode && byteAddress < kPasscodeEnd;
}

bool isSecretRegister(std::string_view addr)
{
    RegisterAddress address;
    ParseAddress(addr, address);
    for (int i = 0; i < registerWidth(address.RegLetter); ++i) {
        if (isSecretByte(address.RegAddress + i))
            return true;
    }
    return false;
}

} // namespace tambrix
