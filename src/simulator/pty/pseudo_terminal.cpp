#include "simulator/pty/pseudo_terminal.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <system_error>
#include <termios.h>
#include <unistd.h>

namespace tambrix {

namespace {

void require(bool done, const char* what)
{
    if (!done)
        throw std::system_error(errno, std::generic_category(), what);
}

std::string unlockedPath(int master)
{
    require(master >= 0, "no pseudo-terminal");
    require(grantpt(master) == 0 && unlockpt(master) == 0, "pseudo-terminal is locked");
    std::array<char, 64> name{};
    require(ptsname_r(master, name.data(), name.size()) == 0, "pseudo-terminal has no name");
    return name.data();
}

void makeRaw(int descriptor)
{
    termios settings{};
    require(tcgetattr(descriptor, &settings) == 0, "tcgetattr");
    cfmakeraw(&settings);
    require(tcsetattr(descriptor, TCSANOW, &settings) == 0, "tcsetattr");
}

} // namespace

Descriptor::~Descriptor()
{
    if (m_value >= 0)
        close(m_value);
}

PseudoTerminal::PseudoTerminal()
    : m_master(posix_openpt(O_RDWR | O_NOCTTY)),
      m_path(unlockedPath(descriptor())),
      m_slave(open(m_path.c_str(), O_RDWR | O_NOCTTY))
{
    require(m_slave.value() >= 0, m_path.c_str());
    makeRaw(m_slave.value());
    require(fcntl(descriptor(), F_SETFL, O_NONBLOCK) == 0, "fcntl");
}

std::size_t PseudoTerminal::read(std::span<std::uint8_t> buffer)
{
    const ssize_t count = ::read(descriptor(), buffer.data(), buffer.size());
    return count > 0 ? static_cast<std::size_t>(count) : 0;
}

void PseudoTerminal::write(std::uint8_t byte)
{
    while (::write(descriptor(), &byte, 1) < 0 && errno == EINTR) {
    }
}

} // namespace tambrix
