#include "bench/figures.h"

#include <QFile>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace tambrix::bench {

namespace {

/// A middle half of the ratios wider than this says nothing about an aim of a few percent.
constexpr double kTellable = 0.04;

void line(const std::string& what, double value, const std::string& unit, const std::string& aim)
{
    std::printf("%-62s %9.3f %-3s %s\n", what.c_str(), value, unit.c_str(), aim.c_str());
    std::fflush(stdout);
}

void spread(const std::vector<double>& values, const char* verdict)
{
    std::printf("    %zu rounds, middle half %.3f to %.3f, all %.3f to %.3f%s\n", values.size(),
                quantile(values, 0.25), quantile(values, 0.75), quantile(values, 0),
                quantile(values, 1), verdict);
    std::fflush(stdout);
}

bool isShort()
{
    return std::getenv("TAMBRIX_BENCH_SHORT") != nullptr;
}

std::string aimText(const char* bound, double aim, bool met)
{
    char text[64];
    std::snprintf(text, sizeof text, "%s %.2f: %s", bound, aim, met ? "met" : "MISSED");
    return text;
}

} // namespace

int rounds(int full)
{
    return isShort() ? 1 : full;
}

std::chrono::milliseconds span(std::chrono::milliseconds full)
{
    return isShort() ? full / 10 : full;
}

double quantile(std::vector<double> values, double share)
{
    const double place = share * static_cast<double>(values.size() - 1);
    const auto value = values.begin() + static_cast<std::ptrdiff_t>(std::lround(place));
    std::nth_element(values.begin(), value, values.end());
    return *value;
}

double median(std::vector<double> values)
{
    return quantile(std::move(values), 0.5);
}

void reportAtLeast(const std::string& what, double value, double aim)
{
    line(what, value, "", aimText("at least", aim, value >= aim));
}

void reportAtMost(const std::string& what, double value, double aim, const std::string& unit)
{
    line(what, value, unit, aimText("at most", aim, value <= aim));
}

void reportRatios(const std::string& what, const std::vector<double>& ratios, double aim)
{
    reportAtMost(what, median(ratios), aim);
    spread(ratios, quantile(ratios, 0.75) - quantile(ratios, 0.25) > kTellable
                       ? ": too noisy to tell"
                       : "");
}

void reportSpread(const std::vector<double>& values)
{
    spread(values, "");
}

void report(const std::string& what, double value, const std::string& unit)
{
    line(what, value, unit, "");
}

double peakMemory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("VmHWM:"))
            return line.mid(6).simplified().split(' ').first().toDouble() / 1024;
    return 0;
}

} // namespace tambrix::bench
