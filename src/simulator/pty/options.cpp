#include "simulator/pty/options.h"

#include <getopt.h>

#include <array>
#include <charconv>
#include <cstdlib>
#include <string_view>
#include <system_error>

namespace tambrix {

namespace {

enum Option {
    Baud = 1,
    Unpaced,
    Link,
    UnplugAfter,
    ReplugAfter,
    FaultDuctor,
    AlarmAfter,
    GarbleRecord,
    Manual,
    NoLabelSelect,
    Trace,
    Help
};

constexpr std::array<option, 13> kLongOptions{{
    {"baud", required_argument, nullptr, Baud},
    {"unpaced", no_argument, nullptr, Unpaced},
    {"link", required_argument, nullptr, Link},
    {"unplug-after", required_argument, nullptr, UnplugAfter},
    {"replug-after", required_argument, nullptr, ReplugAfter},
    {"fault-ductor", required_argument, nullptr, FaultDuctor},
    {"alarm-after", required_argument, nullptr, AlarmAfter},
    {"garble-record", required_argument, nullptr, GarbleRecord},
    {"manual", no_argument, nullptr, Manual},
    {"no-label-select", no_argument, nullptr, NoLabelSelect},
    {"trace", no_argument, nullptr, Trace},
    {"help", no_argument, nullptr, Help},
    {nullptr, 0, nullptr, 0},
}};

std::optional<int> wholeNumber(std::string_view text)
{
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

bool takeSeconds(const char* text, std::optional<SimTime>& result)
{
    constexpr double kLongest = 1e6;
    char* end = nullptr;
    const double seconds = std::strtod(text, &end);
    if (end == text || *end != '\0' || !(seconds >= 0 && seconds <= kLongest))
        return false;
    result = std::chrono::duration_cast<SimTime>(std::chrono::duration<double>(seconds));
    return true;
}

bool takeBaud(std::string_view text, int& baud)
{
    const std::optional<int> value = wholeNumber(text);
    if (!value || (*value != 9600 && *value != 19200))
        return false;
    baud = *value;
    return true;
}

bool takeDuctor(std::string_view text, std::optional<int>& ductor)
{
    const std::optional<int> number = wholeNumber(text);
    if (!number || *number < 1 || *number > 8)
        return false;
    ductor = *number - 1;
    return true;
}

bool takeRecord(std::string_view text, std::optional<std::size_t>& record)
{
    const std::optional<int> number = wholeNumber(text);
    if (!number || *number < 1)
        return false;
    record = static_cast<std::size_t>(*number - 1);
    return true;
}

// The options with a value; `text` is not null for them.
bool takeValue(int name, const char* text, Options& options)
{
    switch (name) {
    case Baud:
        return takeBaud(text, options.baud);
    case Link:
        options.link = text;
        return !options.link.empty();
    case UnplugAfter:
        return takeSeconds(text, options.unplugAfter);
    case ReplugAfter:
        return takeSeconds(text, options.replugAfter);
    case FaultDuctor:
        return takeDuctor(text, options.faultDuctor);
    case GarbleRecord:
        return takeRecord(text, options.garbleRecord);
    default:
        return takeSeconds(text, options.alarmAfter);
    }
}

void takeSwitch(int name, Options& options)
{
    options.unpaced = options.unpaced || name == Unpaced;
    options.manual = options.manual || name == Manual;
    options.labelSelect = options.labelSelect && name != NoLabelSelect;
    options.trace = options.trace || name == Trace;
    options.help = options.help || name == Help;
}

// Takes what getopt_long found at `word`; returns the complaint, empty when all is well.
std::string takeOption(int name, int index, const std::string& word, Options& options)
{
    if (name == '?')
        return "unknown option: " + word;
    if (name == ':')
        return "value missing: " + word;
    if (optarg == nullptr)
        takeSwitch(name, options);
    else if (!takeValue(name, optarg, options))
        return std::string("wrong value for --")
            .append(kLongOptions[static_cast<std::size_t>(index)].name)
            .append(": ")
            .append(optarg);
    return {};
}

} // namespace

std::optional<Options> parseOptions(int argc, char** argv, std::string& complaint)
{
    Options options;
    complaint.clear();
    opterr = 0; // the caller says what is wrong
    for (int name = 0; complaint.empty() && name != -1;) {
        int index = 0;
        const int current = optind;
        name = getopt_long(argc, argv, ":", kLongOptions.data(), &index);
        if (name != -1)
            complaint = takeOption(name, index, argv[current], options);
    }
    if (complaint.empty() && optind < argc)
        complaint = std::string("unexpected argument: ").append(argv[optind]);
    if (complaint.empty() && options.replugAfter && !options.unplugAfter)
        complaint = "--replug-after needs --unplug-after";
    return complaint.empty() ? std::optional(options) : std::nullopt;
}

const char* helpText()
{
    return "Usage: tambrix-board [options]\n"
           "A simulated Q900 target board behind a pseudo-terminal. Prints the path of the\n"
           "device to open, and serves it until it is interrupted.\n"
           "\n"
           "  --baud 9600|19200    speed of the wire (default 9600)\n"
           "  --unpaced            answer at once, whatever the speed\n"
           "  --link PATH          keep a symbolic link to the device at PATH\n"
           "  --unplug-after S     pull the adapter S seconds after the start\n"
           "  --replug-after S     put it back S seconds later, as a new device\n"
           "  --fault-ductor N     feedback sensor of ductor N (1 to 8) does not answer\n"
           "  --alarm-after S      raise the feedback fault of ductor 1 once, after S seconds\n"
           "  --garble-record N    answer the Nth record of a program download with a wrong sum\n"
           "  --manual             panel in manual instead of automatic\n"
           "  --no-label-select    labels are not chosen from the PC\n"
           "  --trace              print every byte with its time in seconds to stderr:\n"
           "                       > to the board, < from the board\n"
           "  --help               print this text\n";
}

} // namespace tambrix
