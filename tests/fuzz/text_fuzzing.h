#pragma once

#include "data/setup_text.h"
#include "tests/fuzz/fuzzing.h"

namespace tambrix::fuzzing {

inline QByteArray bytesOf(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)};
}

/// A fault is told with its reason and a place that the text has, or that comes right after it.
inline void requireInside(const QByteArray& text, const TextFault& fault)
{
    require(fault.line >= 1 && fault.line <= text.count('\n') + 2);
    require(fault.column >= 1 && fault.column <= text.size() + 2);
    require(!fault.reason.isEmpty());
}

/// The whole text of a data set with one line changed: the first two bytes of `input` say which,
/// the third how much of it stays, what follows takes the place of the rest.
inline QByteArray changed(const QByteArray& whole, const QByteArray& input)
{
    const auto byteAt = [&input](qsizetype place) {
        return place < input.size() ? static_cast<unsigned char>(input[place]) : 0;
    };
    static const QList<QByteArray> kLines = whole.split('\n');
    QList<QByteArray> lines = kLines;
    QByteArray& line = lines[(byteAt(0) + 256 * byteAt(1)) % lines.size()];
    line = line.left(byteAt(2)) + input.mid(3);
    return lines.join('\n');
}

/// The data set to change lines of: some labels have names.
inline NamedSetup namedSetup()
{
    NamedSetup setup{defaultSetupData("TAMBRIX_R1.0.0"), {}};
    setup.names.set(0, QStringLiteral("=red"));
    setup.names.set(kLabels - 1, QStringLiteral("\"green\", or blue"));
    return setup;
}

using SetupReader = std::variant<NamedSetup, TextFault> (*)(const QByteArray& text);
using SetupWriter = QByteArray (*)(const NamedSetup& setup);

/// A fault has its place, and what is accepted is written and read back the same. One input of 512,
/// told by its own bytes, changes a line of a whole text: that takes a thousand times as long.
inline void checkSetupText(const QByteArray& input, SetupReader reader, SetupWriter writer)
{
    static const QByteArray kWhole = writer(namedSetup());
    const QByteArray text = qChecksum(input) % 512 == 0 ? changed(kWhole, input) : input;
    const auto read = reader(text);
    if (const auto* fault = std::get_if<TextFault>(&read))
        return requireInside(text, *fault);
    const auto& setup = std::get<NamedSetup>(read);
    require(setup.record.Value.size() == gDataUpperBound + 1);
    require(setup.record.Address.size() == gDataUpperBound + 1);
    require(std::get<NamedSetup>(reader(writer(setup))) == setup);
}

} // namespace tambrix::fuzzing
