// Whatever stands in a program's .hex, .rev and .lcf files, the readers refuse it or give what
// fits the board.

#include "link/hex_records.h"
#include "link/program_files.h"
#include "tests/fuzz/fuzzing.h"

using namespace tambrix;
using namespace tambrix::fuzzing;

namespace {

void readImage(std::string_view text)
{
    const HexImage image = parseHexImage(text);
    require(!image.fault || image.records.empty());
    for (const HexRecord& record : image.records)
        require(!record.data.empty() && record.data.size() <= kLongestRecord);
}

void readLines(std::string_view line)
{
    if (const auto identity = parseRevisionLine(line)) {
        require(identity->name.size() + 4 == line.size());
        require(std::stoi(identity->checksum) <= 255 && std::stoi(identity->revision) <= 255);
        require(printable(identity->name).size() >= identity->name.size());
    }
    if (const auto configuration = parseConfigurationLine(line))
        require(configuration->a <= 9 && configuration->b <= 9 && configuration->c <= 9);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    readImage(textOf(data, size));
    readLines(textOf(data, size));
    return 0;
}
