#pragma once

#include "data/parameters.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tambrix {

/// A complete data set of the controller.
struct SetupDataRecord
{
    std::string Version;              ///< version string of the program that produced it
    std::vector<std::string> Address; ///< register address string of each entry
    std::vector<std::int32_t> Value;  ///< in the controller's own units (0.1 cans, ms, percent)

    bool operator==(const SetupDataRecord&) const = default;
};

/// A value as the controller and the reports have it: decimal, with one blank in front where a
/// negative number has its minus sign.
std::string valueText(std::int32_t value);

/// The data set that New starts from, with every entry's register address.
SetupDataRecord defaultSetupData(const std::string& version);

} // namespace tambrix
