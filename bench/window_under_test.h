#pragma once

#include "bench/link_under_test.h"
#include "data/line_recorder.h"
#include "platform/cooperative_loop.h"
#include "shell/main_window.h"

namespace tambrix::bench {

template <typename Concrete> std::unique_ptr<Screen> makeScreen(ProgramState& state)
{
    return std::make_unique<Concrete>(state);
}

/// The program's window as main() builds it, over a real serial device, shown and off line.
struct WindowUnderTest
{
    WindowUnderTest(const QString& device, int baud, ScreenTable screens);

    /// Bits on the wire since the port's bytes were last cleared: each byte out brings one back.
    double bitsOnWire() const;

    /// Lets the window work for `measuring` (less in a short run): exchanges a second.
    Task exchangeRate(CooperativeLoop& loop, std::chrono::milliseconds measuring,
                      double& perSecond);

    BenchFolder folder;
    SteadyClock clock;
    QtSerialPort serial;
    LineRecorder recorder{clock};
    TracedPort traced{serial, recorder};
    RecordingPort port;
    AbsentOperator nobody;
    ProgramState state;
    MainWindow window;
};

} // namespace tambrix::bench
