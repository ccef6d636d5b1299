#include "simulator/pty/pseudo_terminal.h"

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

void makeRaw(int descriptor)
{
    termios settings{};
    require(tcgetattr(descriptor, &settings) == 0, "tcgetattr");
    cfmakeraw(&settings);
    require(tcsetattr(descriptor, TCSANOW, &settings) == 0, "tcsetattr");
}

} // namespace

PseudoTerminal::PseudoTerminal() : m_master(posix_openpt(O_RDWR | O_NOCTTY))
{
    require(m_master >= 0, "no pseudo-terminal");
    require(grantpt(m_master) == 0 && unlockpt(m_master) == 0, "pseudo-terminal is locked");
    const char* name = ptsname(m_master);
    require(name != nullptr, "pseudo-terminal has no name");
    m_path = name;
    m_slave = open(name, O_RDWR | O_NOCTTY);
    require(m_slave >= 0, name);
    makeRaw(m_slave);
    require(fcntl(m_master, F_SETFL, O_NONBLOCK) == 0, "fcntl");
}

PseudoTerminal::~PseudoTerminal()
{
    close(m_slave);
    close(m_master);
}

std::size_t PseudoTerminal::read(std::span<std::uint8_t> buffer)
{
    const ssize_t count = ::read(m_master, buffer.data(), buffer.size());
    return count > 0 ? static_cast<std::size_t>(count) : 0;
}

void PseudoTerminal::write(std::uint8_t byte)
{
    while (::write(m_master, &byte, 1) < 0 && errno == EINTR) {
    }
}

} // namespace tambrix
