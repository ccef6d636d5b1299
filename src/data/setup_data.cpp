#include "data/setup_data.h"

#include <array>

namespace tambrix {

namespace {

struct Entry
{
    const char* address;
    std::int32_t value;
};

// The set-up parameters and the current label, entries 8 to 13.
constexpr std::array kSetupEntries = {
    Entry{"W690", 500},  // maximum cycle duration, 0.1 cans
    Entry{"B692", 200},  // maximum ON duration, 0.1 cans
    Entry{"B1013", 25},  // response time compensation, ms
    Entry{"B1014", 100}, // colour gain, percent
    Entry{"B694", 0},    // feedback enable bits
    Entry{"W686", 0},    // current label
};

constexpr int kFirstShiftCount = 940;
constexpr int kFirstLabelByte = 3100; // ON durations of label 0
constexpr int kFirstLabelWord = 3110; // CYCLE durations of label 0
constexpr int kLabelBlock = 30;       // addresses the controller keeps for one label
constexpr std::int32_t kDefaultCycle = 200;

std::string registerName(char letter, int number)
{
    return letter + std::to_string(number);
}

void append(SetupDataRecord& record, std::string address, std::int32_t value)
{
    record.Address.push_back(std::move(address));
    record.Value.push_back(value);
}

void appendLabel(SetupDataRecord& record, int label)
{
    for (int d = 0; d < kDuctors; ++d)
        append(record, registerName('B', kFirstLabelByte + kLabelBlock * label + d), 0);
    for (int d = 0; d < kDuctors; ++d)
        append(record, registerName('W', kFirstLabelWord + kLabelBlock * label + 2 * d),
               kDefaultCycle);
}

} // namespace

std::string valueText(std::int32_t value)
{
    return (value < 0 ? "" : " ") + std::to_string(value);
}

SetupDataRecord defaultSetupData(const std::string& version)
{
    SetupDataRecord record;
    record.Version = version;
    for (int d = 0; d < kDuctors; ++d)
        append(record, registerName('D', kFirstShiftCount + 4 * d), 0);
    for (const Entry& entry : kSetupEntries)
        append(record, entry.address, entry.value);
    for (int label = 0; label < kLabels; ++label)
        appendLabel(record, label);
    return record;
}

} // namespace tambrix
