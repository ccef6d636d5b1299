#include "data/line_figures.h"

#include <algorithm>
#include <vector>

namespace tambrix {

using namespace std::chrono_literals;

namespace {

constexpr std::uint64_t kMostExchanges = 2000;
constexpr Duration kOldest = 10s;
constexpr double kBitsOfAnExchange = 20;

double milliseconds(Duration span)
{
    return std::chrono::duration<double, std::milli>(span).count();
}

Duration percentile(std::vector<Duration>& sorted, std::size_t percent)
{
    return sorted[std::min(sorted.size() - 1, sorted.size() * percent / 100)];
}

} // namespace

Duration wireRoundTrip(int baud)
{
    return std::chrono::duration_cast<Duration>(
        std::chrono::duration<double>(kBitsOfAnExchange / baud));
}

LineFigures lineFigures(const LineTrace& trace, int baud)
{
    LineFigures figures;
    std::vector<Duration> trips;
    const std::uint64_t first =
        trace.end() - std::min<std::uint64_t>(kMostExchanges, trace.end() - trace.begin());
    Duration from{};
    Duration until{};
    for (std::uint64_t number = trace.end(); number-- > first;) {
        const LineExchange& exchange = trace.at(number);
        if (number + 1 == trace.end())
            until = exchange.sent + exchange.took;
        if (until - exchange.sent > kOldest)
            break;
        from = exchange.sent;
        if (exchange.out != kNoByte && exchange.in != kNoByte)
            trips.push_back(exchange.took);
    }
    figures.answered = trips.size();
    if (trips.empty())
        return figures;
    std::ranges::sort(trips);
    figures.shortest = trips.front();
    figures.median = percentile(trips, 50);
    figures.slowest99 = percentile(trips, 99);
    const double span = std::chrono::duration<double>(until - from).count();
    figures.perSecond = span > 0 ? static_cast<double>(trips.size()) / span : 0;
    figures.shareOfWire = figures.perSecond * kBitsOfAnExchange / baud;
    return figures;
}

QString figuresText(const LineFigures& figures)
{
    if (figures.answered == 0)
        return QStringLiteral("No exchange yet.");
    return QStringLiteral("%1 exchanges a second, %2 % of what the wire allows.  Round trip: "
                          "shortest %3 ms, median %4 ms, 99 of 100 below %5 ms.")
        .arg(figures.perSecond, 0, 'f', 0)
        .arg(figures.shareOfWire * 100, 0, 'f', 0)
        .arg(milliseconds(figures.shortest), 0, 'f', 1)
        .arg(milliseconds(figures.median), 0, 'f', 1)
        .arg(milliseconds(figures.slowest99), 0, 'f', 1);
}

QString slowAdvice(const LineFigures& figures, int baud)
{
    if (figures.answered == 0 || figures.median <= 2 * wireRoundTrip(baud))
        return {};
    return QStringLiteral("The median round trip is more than twice the wire's own %1 ms: the "
                          "latency timer of the USB adapter or the network is slow. Set the "
                          "adapter's latency timer to 1 ms (Device Manager, Port Settings, "
                          "Advanced); at a serial server, turn off the packing of bytes.")
        .arg(milliseconds(wireRoundTrip(baud)), 0, 'f', 1);
}

} // namespace tambrix
