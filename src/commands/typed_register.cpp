#include "commands/typed_register.h"

#include "commands/failure.h"
#include "link/register_address.h"
#include "link/register_value.h"

#include <QRegularExpression>

namespace tambrix {

namespace {

constexpr std::int32_t kHighestByte = 0xFFFF;

Failure refused(const QString& text)
{
    return {ExitCode::Usage, text};
}

/// Highest value that fits: 1 for a bit, else by the register's width.
std::int64_t highestFor(const RegisterAddress& fields)
{
    return fields.IsBitAddress ? 1 : highestValue(fields.RegLetter);
}

} // namespace

std::string typedRegister(const QString& text)
{
    static const QRegularExpression form(QStringLiteral(
        "\\A(?:[BWD][0-9]{1,5}|[B][0-9]{1,5}\\.[0-7]|F[0-9]{1,6}|[0-9A-F]{1,5}H)\\z"));
    const std::string address = text.toUpper().toStdString();
    if (!form.match(text.toUpper()).hasMatch())
        throw refused(
            QStringLiteral("'%1' names no register (examples: W690, B100.3, F123)").arg(text));
    RegisterAddress fields;
    ParseAddress(address, fields);
    if (fields.RegAddress + registerWidth(fields.RegLetter) - 1 > kHighestByte)
        throw refused(QStringLiteral("%1 lies behind the controller's memory").arg(text));
    return address;
}

Assignment typedAssignment(const QString& text)
{
    const QStringList sides = text.split(u'=');
    bool isNumber = false;
    const qlonglong value = sides.size() == 2 ? sides[1].toLongLong(&isNumber) : 0;
    if (!isNumber)
        throw refused(QStringLiteral("'%1' is no assignment (example: W690=500)").arg(text));
    const Assignment assignment{typedRegister(sides[0]), value};
    RegisterAddress fields;
    ParseAddress(assignment.address, fields);
    if (value < 0 || value > highestFor(fields))
        throw refused(QStringLiteral("%1 takes 0 to %2, not %3")
                          .arg(sides[0])
                          .arg(highestFor(fields))
                          .arg(value));
    return assignment;
}

} // namespace tambrix
