#include "bench/report.h"

#include <algorithm>
#include <cstdio>

namespace tambrix::bench {

namespace {

void line(const std::string& what, double value, const std::string& unit, const std::string& aim)
{
    std::printf("%-62s %9.3f %-3s %s\n", what.c_str(), value, unit.c_str(), aim.c_str());
    std::fflush(stdout);
}

std::string aimText(const char* bound, double aim, bool met)
{
    char text[64];
    std::snprintf(text, sizeof text, "%s %.2f: %s", bound, aim, met ? "met" : "MISSED");
    return text;
}

} // namespace

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

} // namespace tambrix::bench
