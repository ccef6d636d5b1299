#include "shell/patient_port.h"

#include <QApplication>

#include <algorithm>

namespace tambrix {

using namespace std::chrono_literals;

namespace {

constexpr Duration kUnnoticed = 100ms;    // too short to be seen
constexpr Duration kPaintInterval = 20ms; // how often the window may paint after that

class WaitCursor
{
public:
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

} // namespace

bool PatientPort::waitForInput(Duration limit)
{
    m_waitBegins();
    if (port().waitForInput(std::min(limit, kUnnoticed)))
        return true;
    return limit > kUnnoticed && waitVisibly(m_clock.now() + limit - kUnnoticed);
}

bool PatientPort::waitVisibly(Duration end)
{
    const WaitCursor cursor;
    for (Duration left = end - m_clock.now(); left > Duration::zero(); left = end - m_clock.now()) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        if (port().waitForInput(std::min(left, kPaintInterval)))
            return true;
    }
    return false;
}

} // namespace tambrix
