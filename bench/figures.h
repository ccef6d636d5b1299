#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace tambrix::bench {

/// `full` rounds; one when TAMBRIX_BENCH_SHORT is set, to see only that the benchmarks work.
int rounds(int full);
/// The same for a time: then a tenth of `full`.
std::chrono::milliseconds span(std::chrono::milliseconds full);

/// How long `work` takes.
template <typename Work> double seconds(const Work& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Middle value of a list that is not empty.
double median(std::vector<double> values);

/// The most memory that this process has held, in MiB; 0 where the system does not tell.
double peakMemory();

/// One line of the table: "what   0.98   at least 0.97   met".
void reportAtLeast(const std::string& what, double value, double aim);
/// The same for a value that should not exceed `aim`.
void reportAtMost(const std::string& what, double value, double aim, const std::string& unit = {});
/// A value without an aim.
void report(const std::string& what, double value, const std::string& unit);

} // namespace tambrix::bench
