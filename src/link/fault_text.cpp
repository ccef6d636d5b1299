#include "link/fault_text.h"

#include "link/lenient_number.h"
#include "link/text.h"
#include "link/text_records.h"

#include <algorithm>

namespace tambrix {

std::string faultCodeText(std::int16_t code)
{
    return hexText(static_cast<std::uint16_t>(code), 2);
}

std::string faultDescription(std::int16_t code, const std::filesystem::path& faultFile)
{
    const std::string hex = faultCodeText(code);
    const std::string prefix = "Fault Code (" + hex + "H): ";
    const auto records = readTextRecords(faultFile);
    if (!records)
        return prefix + "--- Fault File Not Found ---";
    const auto match = std::ranges::find_if(
        *records, [&](const TextRecord& record) { return sameIgnoringCase(record.code, hex); });
    return match == records->end() ? prefix : prefix + match->text;
}

} // namespace tambrix
