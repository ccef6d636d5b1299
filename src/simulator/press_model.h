#pragma once

#include "simulator/board_memory.h"
#include "simulator/ductor.h"
#include "simulator/memory_map.h"
#include "simulator/sim_time.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace tambrix {

/// The press behind the board's memory: machine speed, eight ductors with their feedback, shift
/// counts, alarms, resolver and analog module, clock. What it does depends on time, on the
/// registers and on the calls below alone, so two runs are alike to the last byte.
///
/// The registers are its state: inputs, parameters and request bits are read anew in every scan,
/// so writing them, over the wire or by a test, steers the press.
class PressModel
{
public:
    enum class OperationalMode { Off, Auto, Manual };

    /// The controller's scan: outputs and counts move on this often.
    static constexpr SimTime kScan = std::chrono::milliseconds(10);
    static constexpr int kUsualSpeed = 1200;   ///< cans per minute
    static constexpr int kHighestSpeed = 3000; ///< cans per minute

    /// The press runs at its usual speed at `start`. `memory` must outlive it.
    PressModel(BoardMemory& memory, SimTime start);

    /// Runs every scan up to `now`.
    void advanceTo(SimTime now);

    /// Acts on the request bits: count reset (byte 43) and alarm reset (F123); clears them.
    void serveRequests();

    /// Speeds the machine up or down to `cansPerMinute`, 0 to kHighestSpeed, by 100 cans per
    /// minute every second.
    void setMachineSpeed(int cansPerMinute);
    /// Stops the machine at once.
    void stop();

    /// The panel's mode switch. Auto also switches the ductors on.
    void setOperationalMode(OperationalMode mode);
    /// The panel's ductor switch in automatic.
    void setDuctorsAutoOn(bool on);
    /// Whether labels are chosen from the PC (F119).
    void setLabelSelect(bool enabled);

    /// Whether the feedback sensor of ductor 0 to 7 follows its solenoid.
    void setDuctorAnswers(int ductor, bool answers);
    /// Raises the feedback fault of ductor 0 to 7 now; it stays until the alarms are reset.
    void raiseAlarm(int ductor);

private:
    void scan();
    void moveMachine();
    void moveDuctors();
    void moveDuctor(int ductor);
    void watchDuctor(int ductor);
    void showModule();
    void resetCounts(std::uint8_t mask);

    BoardMemory& m_memory;
    std::array<Ductor, memory_map::kDuctors> m_ductors;
    SimTime m_time;
    std::int64_t m_scans = 0;
    int m_drive = kUsualSpeed;  ///< cans per minute the drive runs at
    int m_target = kUsualSpeed; ///< cans per minute the drive is heading for
    std::int64_t m_travel = 0;  ///< machine travel in this scan
    std::int64_t m_turn = 0;    ///< machine travel since the resolver's zero
};

} // namespace tambrix
