#include "simulator/ductor.h"

namespace tambrix {

std::uint32_t Ductor::cycle(std::int64_t travel, std::int64_t on, std::int64_t cycle)
{
    if (travel == 0 || on == 0 || cycle == 0) {
        drive(false);
        return 0;
    }
    m_travel += travel;
    const bool wrapped = m_travel >= cycle;
    std::uint32_t completed = 0;
    for (; m_travel >= cycle; m_travel -= cycle)
        completed += finishStroke() ? 1U : 0U;
    drive(wrapped || m_travel < on); // even the shortest stroke lasts one scan
    return completed;
}

void Ductor::hold(bool solenoid)
{
    m_travel = 0;
    m_stroked = false;
    m_confirmed = false;
    drive(solenoid);
}

void Ductor::drive(bool solenoid)
{
    m_sensor = m_answers && m_solenoid; // the stroke takes one scan
    m_solenoid = solenoid;
    m_stroked = m_stroked || solenoid;
    m_confirmed = m_confirmed || m_sensor;
}

// Returns whether the ductor stroked in the cycle that ends here.
bool Ductor::finishStroke()
{
    const bool stroked = m_stroked;
    if (stroked)
        m_missed = m_confirmed ? 0 : m_missed + 1;
    m_stroked = false;
    m_confirmed = false;
    return stroked;
}

} // namespace tambrix
