#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace tambrix {

/// The number that `text` begins with, blanks before it aside; 0 when it begins with none.
double leadingNumber(const QString& text);

/// The number that `text` is as a whole, blanks around it aside: sign, digits, decimal point.
std::optional<double> numericText(const QString& text);

/// Whether `text` is a whole number, blanks around it aside.
bool isWholeNumber(const QString& text);

/// A plain whole number of 32 bits: digits, a minus sign before them at most.
std::optional<std::int32_t> plainNumber(const QString& text);

/// `number` rounded to the nearest whole number, halves to even, within 32 bits.
std::int32_t roundedHalfToEven(double number);

} // namespace tambrix
