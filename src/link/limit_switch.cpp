#include "link/limit_switch.h"

#include <algorithm>

namespace tambrix {

using namespace std::chrono_literals;

namespace {

constexpr Duration kReadyWait = 3s;
constexpr Duration kReadyRetryWait = 2s;

constexpr int kProgramSetpoints = 27;
constexpr int kProgramTrain = 43;
constexpr int kWriteOffset = 42;
constexpr int kWriteScale = 26;
constexpr int kFirstBlock = 59;
constexpr int kBlockStep = 16;
constexpr int kBlocks = 4;
constexpr int kUpload = 12;
constexpr int kRecall = 9;

constexpr std::uint8_t kStatusPoll = 0x38;
constexpr std::uint8_t kNext = 0x55;
constexpr int kReady = 0;

constexpr int kHighestByte = 255;
constexpr int kHighestWord = 65535;
constexpr int kHighestRecallHigh = 16; ///< no scale factor reaches a position beyond this
constexpr std::int16_t kRecallFailed = 2;

bool isByte(int value)
{
    return value >= 0 && value <= kHighestByte;
}

bool isWord(int value)
{
    return value >= 0 && value <= kHighestWord;
}

} // namespace

LimitSwitch::LimitSwitch(LinkFlags& flags, ByteExchange& exchange, Clock& clock, Operator& person)
    : m_flags(flags), m_exchange(exchange), m_clock(clock), m_operator(person)
{
}

std::optional<int> LimitSwitch::read(Parameter parameter)
{
    if (!enter(LinkMode::SwitchParameter, static_cast<int>(parameter)))
        return std::nullopt;
    const int low = nextByte();
    const int high = low == kNoReply ? kNoReply : nextByte();
    m_exchange.forgetMode();
    if (high == kNoReply || m_flags.CommError)
        return std::nullopt;
    return high * 256 + low;
}

bool LimitSwitch::SingleSetpoint(int Chan, int OnSetpoint, int OffSetpoint, bool ClearChan)
{
    const auto scale = read(Parameter::ScaleFactor);
    if (!scale)
        return false;
    for (const int setpoint : {OnSetpoint, OffSetpoint}) {
        if (setpoint > *scale - 1)
            return refuseSetpoint(setpoint, " is greater than scale factor.");
        if (setpoint < 0) // before the channel is cleared for it
            return refuseSetpoint(setpoint, " is less than 0.");
    }
    // kept: this clearing writes the scale factor where ClearPLSChan writes 0; the switch takes
    // both.
    if (ClearChan && !programChannel(kProgramSetpoints, Chan, 0, *scale, 0))
        return false;
    return programChannel(kProgramSetpoints, Chan, OnSetpoint, OffSetpoint, 1);
}

bool LimitSwitch::PulseTrain(int Chan, int ON_Division, int OFF_Division, int START_Division)
{
    const auto scale = read(Parameter::ScaleFactor);
    if (!scale || !trainFits(ON_Division, OFF_Division, START_Division, *scale))
        return false;
    const int divisions = OFF_Division * 256 + ON_Division;
    if (programChannel(kProgramTrain, Chan, START_Division, divisions, 0))
        return !m_flags.CommError;
    m_operator.showMessage({BoxIcon::Information, BoxButtons::Ok, "PLS Pulse Train",
                            "Error Encountered while Programming Pulse Train.\r\n\r\n"
                            "PLS Channel will not be Programmed."});
    return false;
}

bool LimitSwitch::trainFits(int on, int off, int start, int scale)
{
    if (on <= 0 || off <= 0)
        return refuseTrain("ON Division and OFF Division Must be Greater Than 0.");
    if (scale % (on + off) != 0)
        return refuseTrain("ON Division Plus OFF Division\r\nMust be a Multiple of " +
                           std::to_string(scale));
    if (on > kHighestByte || off > kHighestByte) // kept: the text says 255, the switch takes 255
        return refuseTrain("ON Division or OFF Division Must be Less Than 255.");
    if (start > scale - 1)
        return refuseTrain("Start Position Must Not Be Greater Than " + std::to_string(scale - 1) +
                           ".");
    return true;
}

bool LimitSwitch::ClearPLSChan(int Chan)
{
    return programChannel(kProgramSetpoints, Chan, 0, 0, 0);
}

bool LimitSwitch::SetPLSOffset(int Position)
{
    const auto offset = read(Parameter::Offset);
    const auto position = offset ? read(Parameter::Pos) : std::nullopt;
    const auto scale = position ? read(Parameter::ScaleFactor) : std::nullopt;
    if (!scale || *scale == 0)
        return false;
    if (Position > *scale)
        return refuse("Set PLS Offset", "Desired Position cannot be greater than Scale Factor of " +
                                            std::to_string(*scale) +
                                            "\r\nPLS Offset will not be Programmed.");
    return writeValue(kWriteOffset, (*scale + (*offset + *position) % *scale - Position) % *scale);
}

bool LimitSwitch::PLSConfigDownload(const PLSConfig& CfgParam, int ScaleFactor)
{
    for (std::size_t entry = 0; entry < CfgParam.size(); ++entry) {
        if (!isByte(CfgParam[entry]))
            return refuseDownload("Configuration entry " + std::to_string(entry) +
                                  " must be between 0 and 255.");
    }
    if (!isWord(ScaleFactor))
        return refuseDownload("The scale factor must be between 0 and 65535.");
    for (int block = 0; block < kBlocks; ++block) {
        if (!writeBlock(block, CfgParam))
            return false;
    }
    return writeValue(kWriteScale, ScaleFactor);
}

bool LimitSwitch::writeBlock(int block, const PLSConfig& config)
{
    Six entries{};
    const auto first = static_cast<std::size_t>(block) * entries.size();
    for (std::size_t i = 0; i < entries.size(); ++i)
        entries[i] = config[first + i];
    return enter(LinkMode::SwitchBlock, kFirstBlock + kBlockStep * block) &&
           sendAndStore(entries.data(), entries.data() + entries.size());
}

bool LimitSwitch::RecallChannel(int Chan)
{
    m_recall.state = kRecallFailed;
    if (isByte(Chan) && enter(LinkMode::SwitchRecall, kRecall))
        m_recall = recallFrame(Chan).value_or(m_recall);
    m_exchange.forgetMode();
    return m_recall.state != kRecallFailed;
}

std::optional<ChannelRecall> LimitSwitch::recallFrame(int chan)
{
    if (!acknowledges(chan, ByteUse::Data))
        return std::nullopt;
    std::array<int, 3> replies{}; // state, position low, position high
    for (int& reply : replies) {
        reply = nextByte();
        if (reply == kNoReply)
            return std::nullopt;
    }
    if (replies[2] > kHighestRecallHigh)
        return std::nullopt;
    // kept: a state of 2 from the switch itself brings its position along and counts as failed.
    return ChannelRecall{static_cast<std::int16_t>(replies[2] * 256 + replies[1]),
                         static_cast<std::int16_t>(replies[0])};
}

const PLSConfig& LimitSwitch::PLSConfigUpload()
{
    if (!uploadConfiguration())
        refuse("PLS Upload", "Not able to Upload Configuration from PLS.");
    m_exchange.forgetMode();
    return m_config;
}

bool LimitSwitch::uploadConfiguration()
{
    if (!enter(LinkMode::SwitchUpload, kUpload))
        return false;
    for (std::int16_t& entry : m_config) {
        const int reply = nextByte();
        if (reply == kNoReply)
            return false;
        entry = static_cast<std::int16_t>(reply);
    }
    return true;
}

bool LimitSwitch::programChannel(int command, int chan, int a, int b, int flag)
{
    if (!isByte(chan) || !isWord(a) || !isWord(b))
        return false;
    const Six frame{chan, a % 256, a / 256, b % 256, b / 256, flag};
    return enter(LinkMode::SwitchChannel, command) &&
           sendAndStore(frame.data(), frame.data() + frame.size());
}

bool LimitSwitch::writeValue(int command, int value)
{
    if (!isWord(value))
        return false;
    const std::array<int, 2> frame{value % 256, value / 256};
    return enter(LinkMode::SwitchValue, command) &&
           sendAndStore(frame.data(), frame.data() + frame.size());
}

bool LimitSwitch::refuseSetpoint(int setpoint, const char* reason)
{
    return refuse("PLS Single Setpoint", "Setpoint setting " + std::to_string(setpoint) + reason +
                                             "\r\n\r\nChannel can not be programmed.");
}

bool LimitSwitch::refuseDownload(const std::string& reason)
{
    return refuse("PLS Download", reason + "\r\n\r\nPLS Configuration will not be Programmed.");
}

bool LimitSwitch::enter(LinkMode mode, int command)
{
    return m_exchange.EnterLinkMode(mode, static_cast<std::uint8_t>(command)) && !m_flags.CommError;
}

/// Sends the data bytes of a programming command and waits until the switch has stored them.
bool LimitSwitch::sendAndStore(const int* first, const int* last)
{
    const bool sent =
        std::all_of(first, last, [this](int byte) { return acknowledges(byte, ByteUse::Data); });
    const bool stored = sent && waitUntilReady();
    if (sent)
        m_exchange.forgetMode();
    else
        m_exchange.abandonFrame();
    return stored;
}

bool LimitSwitch::acknowledges(int byte, ByteUse use)
{
    const ByteMeaning meaning{use, {}, -1, kAcknowledge};
    return m_exchange.exchangeInFrame(static_cast<std::uint8_t>(byte), meaning) == kAcknowledge &&
           !m_flags.CommError;
}

/// Asks the switch for its next byte.
int LimitSwitch::nextByte()
{
    return m_exchange.exchangeInFrame(kNext, {ByteUse::NextByte});
}

bool LimitSwitch::waitUntilReady()
{
    Duration deadline = m_clock.now() + kReadyWait;
    while (!saysReady()) {
        if (m_flags.CommError)
            return false;
        if (m_clock.now() < deadline)
            continue;
        if (!retryWanted()) {
            m_flags.CommError = true;
            return false;
        }
        deadline = m_clock.now() + kReadyRetryWait;
    }
    return true;
}

bool LimitSwitch::saysReady()
{
    if (!acknowledges(kStatusPoll, ByteUse::StatusPoll) || nextByte() != kReady)
        return false;
    nextByte();
    return !m_flags.CommError;
}

bool LimitSwitch::retryWanted()
{
    return m_operator.showMessage(
               {BoxIcon::Critical, BoxButtons::RetryCancel, "WARNING - Communication Error!",
                "Cannot Determine PLS READY Mode Within Target Board."}) == BoxAnswer::Retry;
}

bool LimitSwitch::refuse(const char* title, const std::string& text)
{
    m_operator.showMessage({BoxIcon::Warning, BoxButtons::Ok, title, text});
    return false;
}

bool LimitSwitch::refuseTrain(const std::string& reason)
{
    return refuse("PLS Pulse Train", reason + "\r\n\r\nPLS Channel will not be Programmed.");
}

} // namespace tambrix
