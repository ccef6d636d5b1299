#pragma once

#include <cstdint>

namespace tambrix {

/// One ink ductor: its solenoid, the sensor that confirms the stroke, and the controller's watch
/// over the two. The caller gives it one step of the controller's scan at a time.
class Ductor
{
public:
    /// A ductor that answers follows its solenoid; one that does not stays where it is.
    void setAnswers(bool answers) { m_answers = answers; }

    /// Puts the ductor somewhere in its cycle, so that the eight do not stroke in step.
    void startAt(std::int64_t travel) { m_travel = travel; }

    /// One step in automatic: the machine moved on by `travel`, and every `cycle` of travel the
    /// solenoid is on for `on` (all in one unit). Returns the cycles completed in this step.
    std::uint32_t cycle(std::int64_t travel, std::int64_t on, std::int64_t cycle);

    /// One step by hand, or with everything off.
    void hold(bool solenoid);

    bool solenoid() const { return m_solenoid; }
    bool sensor() const { return m_sensor; }

    /// Whether the sensor missed so many strokes in a row that it is a fault.
    bool faulty() const { return m_missed >= kMissesToFault; }
    void forgetMisses() { m_missed = 0; }

private:
    static constexpr int kMissesToFault = 2;

    void drive(bool solenoid);
    bool finishStroke();

    std::int64_t m_travel = 0;
    int m_missed = 0;
    bool m_answers = true;
    bool m_solenoid = false;
    bool m_sensor = false;
    bool m_stroked = false;
    bool m_confirmed = false;
};

} // namespace tambrix
