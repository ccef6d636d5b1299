#include "simulator/press_model.h"

#include "simulator/board_clock.h"

#include <algorithm>

namespace tambrix {

namespace {

using namespace memory_map;

// Travel is counted in cans per minute times milliseconds: whole numbers, so nothing drifts.
constexpr std::int64_t kScanMs = PressModel::kScan / std::chrono::milliseconds(1);
constexpr std::int64_t kTravelPerCan = 60000;
constexpr std::int64_t kTravelPerTenth = kTravelPerCan / 10;
constexpr std::int64_t kCansPerTurn = 24; // pockets of the mandrel wheel that the resolver sits on
constexpr std::int64_t kTravelPerTurn = kCansPerTurn * kTravelPerCan;
constexpr std::int64_t kScansPerSecond = std::chrono::seconds(1) / PressModel::kScan;
constexpr std::int64_t kPhaseStep = 23 * kTravelPerTenth; // between neighbouring ductors
constexpr int kSpeedUpPerScan = 1;                        // cans per minute

constexpr std::uint8_t bitOf(int ductor)
{
    return static_cast<std::uint8_t>(1 << ductor);
}

constexpr std::uint16_t asWord(std::int64_t value)
{
    return static_cast<std::uint16_t>(std::clamp<std::int64_t>(value, 0, 65535));
}

// A slow swing between -1000 and 1000: two parabolas, close enough to a sine and whole numbers.
constexpr std::int64_t swing(std::int64_t scans, std::int64_t periodSeconds)
{
    const std::int64_t period = periodSeconds * kScansPerSecond;
    const std::int64_t phase = 2000 * (scans % period) / period - 1000; // -1000 to 999
    return 4 * phase * (1000 - (phase < 0 ? -phase : phase)) / 1000;
}

} // namespace

PressModel::PressModel(BoardMemory& memory, SimTime start) : m_memory(memory), m_time(start)
{
    for (int ductor = 0; ductor < kDuctors; ++ductor)
        m_ductors[static_cast<std::size_t>(ductor)].startAt(ductor * kPhaseStep);
    moveMachine();
    showModule();
}

void PressModel::advanceTo(SimTime now)
{
    if (now < m_time + kScan)
        return;
    for (; m_time + kScan <= now; m_time += kScan)
        scan();
    showModule();
}

void PressModel::scan()
{
    ++m_scans;
    moveMachine();
    moveDuctors();
    if (m_scans % kScansPerSecond == 0)
        tickBoardClock(m_memory);
}

// The drive holds its speed to about one percent.
void PressModel::moveMachine()
{
    m_drive += std::clamp(m_target - m_drive, -kSpeedUpPerScan, kSpeedUpPerScan);
    const std::int64_t wander = m_drive * swing(m_scans, 47) / 100'000;
    const std::int64_t speed = m_drive + wander;
    m_memory.setWord(kMachineSpeed, asWord(speed));
    m_travel = speed * kScanMs;
    m_turn = (m_turn + m_travel) % kTravelPerTurn;
}

void PressModel::moveDuctors()
{
    int solenoids = 0;
    int sensors = 0;
    for (int ductor = 0; ductor < kDuctors; ++ductor) {
        moveDuctor(ductor);
        watchDuctor(ductor);
        const Ductor& moved = m_ductors[static_cast<std::size_t>(ductor)];
        solenoids |= moved.solenoid() ? bitOf(ductor) : 0;
        sensors |= moved.sensor() ? bitOf(ductor) : 0;
    }
    m_memory.setByte(kSolenoids, static_cast<std::uint8_t>(solenoids));
    m_memory.setByte(kFeedbackSensors, static_cast<std::uint8_t>(sensors));
}

void PressModel::moveDuctor(int ductor)
{
    Ductor& moved = m_ductors[static_cast<std::size_t>(ductor)];
    const std::uint8_t inputs = m_memory.byte(kInputs);
    if ((inputs & kInputAuto) == 0) {
        const bool byHand = (inputs & kInputManual) != 0;
        moved.hold(byHand && m_memory.any(kManualDuctors, bitOf(ductor)));
    } else if ((inputs & kInputAutoOn) == 0) {
        moved.hold(false);
    } else {
        const std::uint32_t completed =
            moved.cycle(m_travel, m_memory.byte(workingOn(ductor)) * kTravelPerTenth,
                        m_memory.word(workingCycle(ductor)) * kTravelPerTenth);
        if (completed > 0)
            m_memory.setCounter(shiftCount(ductor),
                                m_memory.counter(shiftCount(ductor)) + completed);
    }
}

void PressModel::watchDuctor(int ductor)
{
    Ductor& watched = m_ductors[static_cast<std::size_t>(ductor)];
    if (!m_memory.any(kFeedbackEnable, bitOf(ductor)))
        watched.forgetMisses();
    else if (watched.faulty())
        raiseAlarm(ductor);
}

void PressModel::showModule()
{
    const std::int64_t speed = m_memory.word(kMachineSpeed);
    const std::int64_t scale = std::max<std::int64_t>(m_memory.word(kResolverScale), 1);
    const std::int64_t turned = m_turn * scale / kTravelPerTurn;
    m_memory.setWord(kResolverPos, asWord((turned + m_memory.word(kResolverOffset)) % scale));
    m_memory.setWord(kResolverRpm, asWord(speed / kCansPerTurn));
    m_memory.setWord(kResolverPeriod, asWord(speed == 0 ? 0 : kTravelPerTurn / speed));
    m_memory.setBits(kModuleInputs, kModuleInput0, m_turn < kTravelPerTurn / 2);
    m_memory.setBits(kModuleInputs, kModuleInput1, speed > 0);
    m_memory.setWord(kAnalogInput0, asWord(2048 + 150 * swing(m_scans, 31) / 1000));
    m_memory.setWord(kAnalogInput1, asWord(speed * 4095 / 4000));
    m_memory.setByte(kAnalogOutput0, static_cast<std::uint8_t>(
                                         std::min<std::int64_t>(speed * 255 / kHighestSpeed, 255)));
    m_memory.setByte(kAnalogOutput1, 128);
}

void PressModel::serveRequests()
{
    if (const std::uint8_t mask = m_memory.byte(kCountReset); mask != 0)
        resetCounts(mask);
    if (!m_memory.any(kAlarmResetFlags, kAlarmReset))
        return;
    m_memory.setByte(kAlarms, 0);
    m_memory.setByte(kFeedbackFaults, 0);
    m_memory.setBits(kAlarmResetFlags, kAlarmReset, false);
    for (Ductor& ductor : m_ductors)
        ductor.forgetMisses();
}

void PressModel::resetCounts(std::uint8_t mask)
{
    for (int ductor = 0; ductor < kDuctors; ++ductor) {
        if ((mask & bitOf(ductor)) != 0)
            m_memory.setCounter(shiftCount(ductor), 0);
    }
    m_memory.setByte(kCountReset, 0);
}

void PressModel::setMachineSpeed(int cansPerMinute)
{
    m_target = std::clamp(cansPerMinute, 0, kHighestSpeed);
}

void PressModel::stop()
{
    m_target = 0;
    m_drive = 0;
}

void PressModel::setOperationalMode(OperationalMode mode)
{
    m_memory.setBits(kInputs, kInputAuto, mode == OperationalMode::Auto);
    m_memory.setBits(kInputs, kInputManual, mode == OperationalMode::Manual);
    setDuctorsAutoOn(mode == OperationalMode::Auto);
}

void PressModel::setDuctorsAutoOn(bool on)
{
    m_memory.setBits(kInputs, kInputAutoOn, on);
}

void PressModel::setLabelSelect(bool enabled)
{
    m_memory.setBits(kLabelSelectFlags, kLabelSelect, enabled);
}

void PressModel::setDuctorAnswers(int ductor, bool answers)
{
    m_ductors.at(static_cast<std::size_t>(ductor)).setAnswers(answers);
}

void PressModel::raiseAlarm(int ductor)
{
    m_memory.setBits(kAlarms, bitOf(ductor), true);
    m_memory.setBits(kFeedbackFaults, bitOf(ductor), true);
}

} // namespace tambrix
