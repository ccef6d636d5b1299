#pragma once

#include "link/byte_exchange.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace tambrix {

/// The switch's configuration. On the wire an entry is one byte, so each is 0 to 255.
using PLSConfig = std::array<std::int16_t, 24>;

/// What a channel recall brought.
struct ChannelRecall
{
    std::int16_t pos = 0;
    std::int16_t state = 0; ///< 2: failed or invalid
};

/// The programmable limit switch of the PLS board variants: output channels that switch on and
/// off at positions within one revolution of the machine.
///
/// On the wire every operation starts with attention and its command byte. Parameter read: 0x55
/// is answered by the low, then the high byte. Everything else sends data bytes, each answered
/// 0x55, and a programming command then polls until the switch has stored them: 0x38 is answered
/// 0x55, then 0x55 is answered 0 (ready; one more 0x55 closes) or 0x55 (busy).
class LimitSwitch
{
public:
    /// Switch parameters by their command bytes.
    enum class Parameter : std::uint8_t { ScaleFactor = 24, Offset = 40, Pos = 72, Rpm = 88 };

    LimitSwitch(LinkFlags& flags, ByteExchange& exchange, Clock& clock, Operator& person);

    /// A parameter's value, 0 to 65535; empty when the read failed.
    std::optional<int> read(Parameter parameter);

    /// Each returns whether the switch has stored the data; setpoints and positions are 0 to
    /// scale factor - 1. What is refused is shown in a box, and nothing is programmed.
    bool SingleSetpoint(int Chan, int OnSetpoint, int OffSetpoint, bool ClearChan);
    bool PulseTrain(int Chan, int ON_Division, int OFF_Division, int START_Division);
    bool ClearPLSChan(int Chan);
    /// Moves the offset so that the current position becomes `Position`, 0 to scale factor.
    bool SetPLSOffset(int Position);
    bool PLSConfigDownload(const PLSConfig& CfgParam, int ScaleFactor);

    /// Reads one channel's first setpoint; see recall(). Returns whether it is valid.
    bool RecallChannel(int Chan);
    const ChannelRecall& recall() const { return m_recall; }

    /// Reads the configuration, one byte an entry. After a failure (shown in a box) the entries
    /// that did not come keep their old values.
    const PLSConfig& PLSConfigUpload();

private:
    using Six = std::array<int, 6>;

    bool programChannel(int command, int chan, int a, int b, int flag);
    bool writeValue(int command, int value);
    bool writeBlock(int block, const PLSConfig& config);
    bool uploadConfiguration();
    std::optional<ChannelRecall> recallFrame(int chan);
    bool enter(LinkMode mode, int command);
    bool acknowledges(int byte, ByteUse use);
    int nextByte();
    bool sendAndStore(const int* first, const int* last);
    bool waitUntilReady();
    bool saysReady();
    bool retryWanted();
    bool refuse(const char* title, const std::string& text);
    bool refuseSetpoint(int setpoint, const char* reason);
    bool refuseDownload(const std::string& reason);
    bool refuseTrain(const std::string& reason);
    bool trainFits(int on, int off, int start, int scale);

    LinkFlags& m_flags;
    ByteExchange& m_exchange;
    Clock& m_clock;
    Operator& m_operator;
    ChannelRecall m_recall;
    PLSConfig m_config{};
};

} // namespace tambrix
