#include "data/setup_data.h"

namespace tambrix {

std::string valueText(std::int32_t value)
{
    return (value < 0 ? "" : " ") + std::to_string(value);
}

SetupDataRecord defaultSetupData(const std::string& version)
{
    SetupDataRecord record;
    record.Version = version;
    for (int slot = 0; slot <= gDataUpperBound; ++slot) {
        const DataEntry entry = entryAt(slot);
        record.Address.push_back(addressOf(entry.parameter, entry.ductor, entry.label));
        record.Value.push_back(entry.parameter.standard);
    }
    return record;
}

} // namespace tambrix
