#include "data/register_check.h"

#include "link/register_address.h"
#include "link/register_value.h"

#include <QRegularExpression>
#include <QString>

namespace tambrix {

namespace {

constexpr std::int64_t kLastByte = 0xFFFF;

RegisterAddress parsed(std::string_view address)
{
    RegisterAddress fields;
    ParseAddress(address, fields);
    return fields;
}

} // namespace

bool namesRegister(std::string_view address)
{
    static const QRegularExpression form(
        QStringLiteral("^([BWDF][0-9]{1,5}|[BWD][0-9]{1,5}\\.[0-7]|[0-9A-F]{1,4}H)$"),
        QRegularExpression::CaseInsensitiveOption);
    const auto text = QString::fromLatin1(address.data(), static_cast<qsizetype>(address.size()));
    if (!form.match(text).hasMatch())
        return false;
    const RegisterAddress fields = parsed(address);
    return fields.RegAddress + registerWidth(fields.RegLetter) - 1 <= kLastByte;
}

bool takesValue(std::string_view address, std::int64_t value)
{
    const RegisterAddress fields = parsed(address);
    return value >= 0 && value <= (fields.IsBitAddress ? 1 : highestValue(fields.RegLetter));
}

} // namespace tambrix
