#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace tambrix {

/// A file descriptor that closes itself.
class Descriptor
{
public:
    explicit Descriptor(int value) : m_value(value) {}
    ~Descriptor();
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int value() const { return m_value; }

private:
    int m_value;
};

/// One raw pseudo-terminal: the server's end of a serial cable that other programs open by path.
/// It holds the other end open itself, so that nobody having it open is no error. When it is
/// destroyed, whoever has the device open loses it.
class PseudoTerminal
{
public:
    /// Throws std::system_error when the system gives none.
    PseudoTerminal();

    const std::string& path() const { return m_path; }
    int descriptor() const { return m_master.value(); }

    /// Takes what was received into `buffer`; returns the number of bytes, 0 at once when there
    /// is none.
    std::size_t read(std::span<std::uint8_t> buffer);

    /// Sends one byte; it is lost when nobody has taken the last few thousand.
    void write(std::uint8_t byte);

private:
    Descriptor m_master;
    std::string m_path;
    Descriptor m_slave;
};

} // namespace tambrix
