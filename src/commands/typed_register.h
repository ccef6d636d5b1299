#pragma once

#include <QString>

#include <cstdint>
#include <string>

namespace tambrix {

/// A register as a user types it: "W690", "b100.3", "F123", "A800H"; upper case afterwards.
/// Throws Failure (exit code 2) for what names no register of the controller's 64 KiB.
std::string typedRegister(const QString& text);

/// One assignment as a user types it: "W690=500".
struct Assignment
{
    std::string address;
    std::int64_t value = 0;
};

/// Throws Failure (exit code 2) for what is no assignment, or a value that the register's width
/// cannot hold.
Assignment typedAssignment(const QString& text);

} // namespace tambrix
