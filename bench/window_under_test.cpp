#include "bench/window_under_test.h"

namespace tambrix::bench {

WindowUnderTest::WindowUnderTest(const QString& device, int baud, ScreenTable screens)
    : folder(baud),
      serial(clock, device),
      port(traced, clock),
      state(QDir(QString::fromStdString(folder.path().string())), port, clock, nobody),
      window(state, std::move(screens), {})
{
    window.show();
}

double WindowUnderTest::bitsOnWire() const
{
    constexpr double kBitsPerByte = 10; // with start and stop bit
    return 2 * static_cast<double>(port.bytes.size()) * kBitsPerByte;
}

} // namespace tambrix::bench
