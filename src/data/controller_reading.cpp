#include "data/controller_reading.h"

#include "data/link_text.h"

#include <algorithm>

namespace tambrix {

namespace {

// A line that changes a byte does so in a few places. Where the two sets differ in more, they are
// different, and reading all of it again would only take time.
constexpr std::size_t kMostDoubtful = 24;

constexpr std::size_t kLabelNumber = kEntriesPerLabel; // read again behind the running values

/// Shift counts go on counting: nothing is expected of them.
std::vector<std::optional<std::int32_t>> expectations(const SetupDataRecord* expected)
{
    if (expected == nullptr)
        return {};
    std::vector<std::optional<std::int32_t>> values(expected->Value.begin(), expected->Value.end());
    std::fill_n(values.begin() + kShiftCountSlot, kDuctors, std::nullopt);
    return values;
}

std::vector<std::string> runningAddresses()
{
    std::vector<std::string> addresses;
    addresses.reserve(2 * kDuctors + 1);
    for (int d = 0; d < kDuctors; ++d)
        addresses.push_back(addressOf(reg::kWorkingOn, d));
    for (int d = 0; d < kDuctors; ++d)
        addresses.push_back(addressOf(reg::kWorkingCycle, d));
    addresses.push_back(addressOf(reg::kLabelNumber));
    return addresses;
}

} // namespace

ControllerReading::ControllerReading(RSComm& link, const SetupDataRecord* expected)
    : m_link(link),
      m_read(link, defaultSetupData({}).Address, expectations(expected), kMostDoubtful)
{
}

void ControllerReading::step()
{
    if (m_stage == Stage::Entries) {
        m_read.step();
        if (m_read.ended() && !failed()) {
            m_stage = Stage::Running;
            m_runningRead.emplace(m_link, runningAddresses(), expectations(nullptr), 0);
        }
        return;
    }
    m_runningRead->step();
    if (m_runningRead->ended() && !failed())
        takeRunning();
}

void ControllerReading::takeRunning()
{
    m_stage = Stage::Done;
    const auto& values = m_runningRead->data().Value;
    const std::int32_t label = values[kLabelNumber];
    if (label < 0 || label >= kLabels || label != data().Value[kCurrentLabelSlot])
        return;
    m_running.emplace();
    m_running->label = label;
    std::copy_n(values.begin(), kEntriesPerLabel, m_running->value.begin());
}

int ControllerReading::progress() const
{
    return static_cast<int>(m_read.count() + (m_runningRead ? m_runningRead->count() : 0));
}

int ControllerReading::total() const
{
    return static_cast<int>(data().Address.size()) + kEntriesPerLabel + 1;
}

bool ControllerReading::failed() const
{
    return m_link.CommError || !m_read.unreadable().empty() ||
           (m_runningRead && !m_runningRead->unreadable().empty());
}

QString ControllerReading::failure() const
{
    if (!failed())
        return {};
    const ConfirmedRead& read = m_runningRead ? *m_runningRead : m_read;
    const auto& addresses = read.data().Address;
    const std::string& silent = read.unreadable().empty()
                                    ? addresses[std::min(read.count(), addresses.size() - 1)]
                                    : read.unreadable();
    return QStringLiteral("The controller did not answer at %1.").arg(fromLink(silent));
}

} // namespace tambrix
