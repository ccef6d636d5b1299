#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace tambrix {

/// One raw pseudo-terminal: the server's end of a serial cable that other programs open by path.
/// It holds the other end open itself, so that nobody having it open is no error.
class PseudoTerminal
{
public:
    /// Throws std::system_error when the system gives none.
    PseudoTerminal();
    /// Both ends close: whoever has the device open loses it.
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    const std::string& path() const { return m_path; }
    int descriptor() const { return m_master; }

    /// Takes what was received into `buffer`; returns the number of bytes, 0 at once when there
    /// is none.
    std::size_t read(std::span<std::uint8_t> buffer);

    /// Sends one byte; it is lost when nobody has taken the last few thousand.
    void write(std::uint8_t byte);

private:
    int m_master = -1;
    int m_slave = -1;
    std::string m_path;
};

} // namespace tambrix
