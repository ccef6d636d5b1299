#include "data/register_text.h"

#include "link/register_address.h"
#include "link/register_value.h"

#include <QRegularExpression>

namespace tambrix {

namespace {

constexpr std::int32_t kHighestByte = 0xFFFF;

} // namespace

std::variant<std::string, Refusal> registerFromText(const QString& text)
{
    static const QRegularExpression form(QStringLiteral(
        "\\A(?:[BWD][0-9]{1,5}|[B][0-9]{1,5}\\.[0-7]|F[0-9]{1,6}|[0-9A-F]{1,5}H)\\z"));
    const std::string address = text.toUpper().toStdString();
    if (!form.match(text.toUpper()).hasMatch())
        return Refusal{
            QStringLiteral("'%1' names no register (examples: W690, B100.3, F123)").arg(text)};
    RegisterAddress fields;
    ParseAddress(address, fields);
    if (fields.RegAddress + registerWidth(fields.RegLetter) - 1 > kHighestByte)
        return Refusal{QStringLiteral("%1 lies behind the controller's memory").arg(text)};
    return address;
}

} // namespace tambrix
