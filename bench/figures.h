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

/// The value below which a share of a list that is not empty lies: 0.5 is the middle value.
double quantile(std::vector<double> values, double share);
double median(std::vector<double> values);

/// The most memory that this process has held, in MiB; 0 where the system does not tell.
double peakMemory();

/// One line of the table: "what   0.98   at least 0.97   met".
void reportAtLeast(const std::string& what, double value, double aim);
/// The same for a value that should not exceed `aim`.
void reportAtMost(const std::string& what, double value, double aim, const std::string& unit = {});
/// The ratios of interleaved rounds, which should not exceed `aim`: their middle value, and on a
/// line of its own their spread and whether the machine was too noisy to tell.
void reportRatios(const std::string& what, const std::vector<double>& ratios, double aim);
/// How many rounds there were, the middle half of their values and the extremes.
void reportSpread(const std::vector<double>& values);
/// A value without an aim.
void report(const std::string& what, double value, const std::string& unit);

} // namespace tambrix::bench
