// Whatever stands in the settings file, the program starts with a port and a speed that exist, and
// leaves the file as it is, unless it was empty.

#include "link/settings_file.h"
#include "tests/fuzz/fuzzing.h"

#include <cstdint>

using namespace tambrix;
using namespace tambrix::fuzzing;

namespace {

CommSettings settingsIn(const std::filesystem::path& file)
{
    std::error_code error;
    const CommSettings settings = readOrCreateCommSettings(file, error);
    require(!error);
    require(settings.port >= kLowestPort && settings.port <= kHighestPort);
    require(settings.speed == "9600" || settings.speed == "19200");
    return settings;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static InputFile input;
    const auto& file = input.holding(textOf(data, size));
    const CommSettings read = settingsIn(file);
    require(size == 0 || std::filesystem::file_size(file) == size);
    std::error_code error;
    writeCommSettings(file, read, error);
    require(!error);
    const CommSettings again = settingsIn(file);
    require(again.port == read.port && again.speed == read.speed);
    return 0;
}
