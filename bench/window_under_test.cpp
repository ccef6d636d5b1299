#include "bench/window_under_test.h"

#include "bench/figures.h"

#include <QElapsedTimer>

namespace tambrix::bench {

WindowUnderTest::WindowUnderTest(const QString& device, int baud, ScreenTable screens)
    : folder(baud),
      serial(clock, device),
      port(traced, clock),
      state(QDir(QString::fromStdString(folder.path().string())), port, clock, nobody),
      window(state, std::move(screens), {})
{
    port.tellWaits([this] { state.lineWaits.begin(); });
    window.show();
}

double WindowUnderTest::bitsOnWire() const
{
    constexpr double kBitsPerByte = 10; // with start and stop bit
    return 2 * static_cast<double>(port.bytes.size()) * kBitsPerByte;
}

Task WindowUnderTest::exchangeRate(CooperativeLoop& loop, std::chrono::milliseconds measuring,
                                   double& perSecond)
{
    port.bytes.clear();
    port.times.clear();
    QElapsedTimer timer;
    timer.start();
    co_await loop.pause(span(measuring));
    perSecond =
        static_cast<double>(port.bytes.size()) * 1e9 / static_cast<double>(timer.nsecsElapsed());
}

} // namespace tambrix::bench
