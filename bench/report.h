#pragma once

#include <string>
#include <vector>

namespace tambrix::bench {

/// Middle value of a list that is not empty.
double median(std::vector<double> values);

/// One line of the table: "what   0.98   at least 0.97   met".
void reportAtLeast(const std::string& what, double value, double aim);
/// The same for a value that should not exceed `aim`.
void reportAtMost(const std::string& what, double value, double aim, const std::string& unit = {});
/// A value without an aim.
void report(const std::string& what, double value, const std::string& unit);

} // namespace tambrix::bench
