#pragma once

#include "simulator/sim_time.h"

#include <filesystem>
#include <optional>
#include <string>

namespace tambrix {

/// What the command line of tambrix-board asks for. Times count from the start of the program.
struct Options
{
    int baud = 9600;      ///< 9600 or 19200
    bool unpaced = false; ///< bytes take no time
    std::filesystem::path link;
    std::optional<SimTime> unplugAfter;
    std::optional<SimTime> replugAfter; ///< counts from the unplugging
    std::optional<SimTime> alarmAfter;
    std::optional<int> faultDuctor;          ///< 0 to 7
    std::optional<std::size_t> garbleRecord; ///< program record, counted from 0
    bool manual = false;
    bool labelSelect = true;
    bool trace = false;
    bool help = false;
};

/// Reads the command line. A wrong one gives no options and a line that says why in `complaint`.
std::optional<Options> parseOptions(int argc, char** argv, std::string& complaint);

/// The text of --help.
const char* helpText();

} // namespace tambrix
