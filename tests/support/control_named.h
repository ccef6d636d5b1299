#pragma once

#include <QWidget>

#include <stdexcept>
#include <string>

namespace tambrix {

/// The control with this name in a window.
template <typename Control> Control& controlNamed(const QWidget& window, const char* name)
{
    auto* found = window.findChild<Control*>(QLatin1String(name));
    if (found == nullptr)
        throw std::runtime_error(std::string("no control ") + name);
    return *found;
}

} // namespace tambrix
