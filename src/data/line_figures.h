#pragma once

#include "data/line_trace.h"

#include <QString>

namespace tambrix {

/// How fast the line is.
struct LineFigures
{
    std::size_t answered = 0; ///< exchanges that the figures stand on
    double perSecond = 0;     ///< exchanges a second
    Duration shortest{};      ///< round trip of one exchange: one byte out, one byte back
    Duration median{};        ///< 0 without any
    Duration slowest99{};     ///< 99 of 100 are no slower
    double shareOfWire = 0;   ///< of the exchanges that the wire allows; 1 is all of them
};

/// The time that the wire itself needs for one exchange: two bytes of ten bits.
Duration wireRoundTrip(int baud);

/// Figures of the last 2,000 exchanges at most, as far as they are no older than 10 s before the
/// newest. `baud` is 9600 or 19200.
LineFigures lineFigures(const LineTrace& trace, int baud);

/// The figures as one line of text.
QString figuresText(const LineFigures& figures);

/// What to set where the median round trip exceeds twice the wire's own; else empty.
QString slowAdvice(const LineFigures& figures, int baud);

} // namespace tambrix
