// Feeds the set-up file reader with anything. What it accepts must be in the bytes: written out
// again it gives their beginning.
#include "data/setup_file.h"
#include "tests/fuzz/fuzzing.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes = tambrix::fuzzing::textOf(data, size);
    const auto read = tambrix::readSetupFile(bytes);
    const auto* record = std::get_if<tambrix::SetupDataRecord>(&read);
    if (record == nullptr)
        return 0;
    const std::string again = tambrix::setupFileBytes(*record);
    tambrix::fuzzing::require(bytes.starts_with(again));
    return 0;
}
