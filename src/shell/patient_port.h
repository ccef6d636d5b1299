#pragma once

#include "link/forwarding_port.h"

#include <QObject>

namespace tambrix {

/// A serial port whose long waits do not look like a crash: after the first 0.1 s the wait cursor
/// shows and the window goes on painting, with the user's input kept out.
class PatientPort : public QObject, public ForwardingPort
{
    Q_OBJECT

public:
    PatientPort(SerialPort& port, Clock& clock) : ForwardingPort(port), m_clock(clock) {}

    bool waitForInput(Duration limit) override;

signals:
    /// A wait for an answer begins.
    void waits();

private:
    bool waitVisibly(Duration end);

    Clock& m_clock;
};

} // namespace tambrix
