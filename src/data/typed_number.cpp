#include "data/typed_number.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <limits>

namespace tambrix {

namespace {

const QString kNumber = QStringLiteral("[ \\t]*([+-]?(?:[0-9]+\\.?[0-9]*|\\.[0-9]+))");

} // namespace

double leadingNumber(const QString& text)
{
    static const QRegularExpression prefix(QStringLiteral("^") + kNumber);
    return prefix.match(text).captured(1).toDouble();
}

std::optional<double> numericText(const QString& text)
{
    static const QRegularExpression whole(QStringLiteral("\\A") + kNumber +
                                          QStringLiteral("[ \\t]*\\z"));
    const QRegularExpressionMatch match = whole.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    return match.captured(1).toDouble();
}

bool isWholeNumber(const QString& text)
{
    const std::optional<double> number = numericText(text);
    return number && *number == std::floor(*number);
}

std::optional<std::int32_t> plainNumber(const QString& text)
{
    static const QRegularExpression plain(QStringLiteral("\\A-?[0-9]{1,10}\\z"));
    bool fits = false;
    const int value = text.toInt(&fits);
    return fits && plain.match(text).hasMatch() ? std::optional(value) : std::nullopt;
}

std::int32_t roundedHalfToEven(double number)
{
    using Limits = std::numeric_limits<std::int32_t>;
    const double within = std::clamp<double>(number, static_cast<double>(Limits::min()),
                                             static_cast<double>(Limits::max()));
    return static_cast<std::int32_t>(std::nearbyint(within));
}

} // namespace tambrix
