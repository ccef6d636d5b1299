// Whatever stands in a file of fault texts, a record is no longer than the line that it came from.

#include "link/fault_text.h"
#include "link/text_records.h"
#include "tests/fuzz/fuzzing.h"

#include <algorithm>

using namespace tambrix;
using namespace tambrix::fuzzing;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static InputFile input;
    const std::string_view text = textOf(data, size);
    const auto& file = input.holding(text);
    const auto records = readTextRecords(file);
    require(records.has_value());
    std::size_t kept = 0;
    for (const TextRecord& record : *records)
        kept += record.code.size() + record.text.size() + 1;
    require(kept <= size + 1);
    require(static_cast<std::ptrdiff_t>(records->size()) <= std::ranges::count(text, '\n') + 1);
    constexpr std::int16_t kCode = 0x1F;
    require(faultDescription(kCode, file).starts_with("Fault Code (1FH): "));
    return 0;
}
