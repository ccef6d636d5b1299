#pragma once

#include <QString>

#include <string>

namespace tambrix {

/// Text of the link (UTF-8) as Qt has it.
inline QString fromLink(const std::string& text)
{
    return QString::fromStdString(text);
}

} // namespace tambrix
