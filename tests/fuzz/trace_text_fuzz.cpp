// Whatever stands in a trace file, the reader names the line that is none, or gives exchanges that
// read back as they are; a byte once masked stays masked.

#include "data/trace_text.h"
#include "tests/fuzz/fuzzing.h"

#include <QBuffer>

using namespace tambrix;
using namespace tambrix::fuzzing;

namespace {

constexpr std::size_t kRoom = 1 << 20; // exchanges

/// The text that `text` comes back as; nothing when it is refused.
QByteArray readBack(QByteArray text, std::uint64_t most = kRoom)
{
    QBuffer device(&text);
    device.open(QIODevice::ReadOnly);
    LineTrace trace(kRoom);
    if (!readTrace(device, trace).isEmpty())
        return {};
    for (std::uint64_t number = trace.begin(); number != trace.end(); ++number) {
        const LineExchange& exchange = trace.at(number);
        require(exchange.in >= kSecretByte && exchange.in <= 0xFF);
        require(exchange.out >= kSecretByte && exchange.out <= 0xFF);
    }
    return traceText(trace, most);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray input(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QByteArray text = readBack(input);
    const QByteArray again = readBack(text);
    require(again.size() == text.size());
    for (qsizetype i = 0; i < text.size(); ++i)
        require(again[i] == text[i] || again[i] == '*'); // it may mask more
    const QByteArray newest = readBack(input, 4);
    require(text.endsWith(newest.mid(newest.startsWith('#') ? newest.indexOf('\n') + 1 : 0)));
    return 0;
}
