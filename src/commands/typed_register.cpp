#include "commands/typed_register.h"

#include "commands/failure.h"
#include "data/register_text.h"
#include "link/register_address.h"
#include "link/register_value.h"

#include <QStringList>

namespace tambrix {

namespace {

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
    auto address = registerFromText(text);
    if (const auto* refusal = std::get_if<Refusal>(&address))
        throw refused(refusal->reason);
    return std::get<std::string>(std::move(address));
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
