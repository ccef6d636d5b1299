#include "bench/figures.h"

#include <QFile>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace tambrix::bench {

namespace {

void line(const std::string& what, double value, const std::string& unit, const std::string& aim)
{
    std::printf("%-62s %9.3f %-3s %s\n", what.c_str(), value, unit.c_str(), aim.c_str());
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

double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void reportAtLeast(const std::string& what, double value, double aim)
{
    line(what, value, "", aimText("at least", aim, value >= aim));
}

void reportAtMost(const std::string& what, double value, double aim, const std::string& unit)
{
    line(what, value, unit, aimText("at most", aim, value <= aim));
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
