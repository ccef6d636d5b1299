#pragma once

#include "simulator/pty/options.h"
#include "simulator/pty/pseudo_terminal.h"
#include "simulator/pty/stable_link.h"
#include "simulator/simulated_board.h"
#include "simulator/simulated_line.h"

#include <csignal>
#include <functional>
#include <memory>
#include <vector>

namespace tambrix {

/// Serves one simulated board on a pseudo-terminal, paced like the wire.
class BoardServer
{
public:
    explicit BoardServer(const Options& options);

    /// Serves until `stop` is set. Throws std::system_error (std::filesystem::filesystem_error
    /// for the link) when a device or its link cannot be made.
    void run(const volatile std::sig_atomic_t& stop);

private:
    struct Event
    {
        SimTime due;
        std::function<void()> act;
    };

    void plan(const Options& options);
    void plug();
    void unplug();
    void actOnEvents();
    void takeRequests();
    void giveReplies();
    void rest() const;
    SimTime restEnd() const;

    SimulatedBoard m_board;
    SimulatedLine m_line;
    StableLink m_link;
    std::unique_ptr<PseudoTerminal> m_terminal;
    std::vector<Event> m_events; ///< latest first
    SimTime m_lastReply = SimTime::zero();
};

} // namespace tambrix
