// Whatever stands in a file of fault texts, its records are not empty and hold no more than the
// file.

#include "link/fault_text.h"
#include "link/text_records.h"
#include "tests/fuzz/fuzzing.h"

using namespace tambrix;
using namespace tambrix::fuzzing;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static InputFile input;
    const auto& file = input.holding(textOf(data, size));
    const auto records = readTextRecords(file);
    require(records.has_value());
    std::size_t kept = 0;
    for (const TextRecord& record : *records) {
        require(!record.code.empty() || !record.text.empty());
        kept += record.code.size() + record.text.size();
    }
    require(kept <= size);
    constexpr std::int16_t kCode = 0x1F;
    require(faultDescription(kCode, file).starts_with("Fault Code (1FH): "));
    return 0;
}
