#include "maintenance/line_check.h"

#include "data/line_figures.h"
#include "data/parameters.h"

#include <optional>

namespace tambrix {

using namespace std::chrono_literals;

namespace {

using Kind = LineFinding::Kind;

constexpr int kSamples = 40;
constexpr Duration kReplyWait = 1s;
/// A board that has half a frame drops it in this time; what comes meanwhile comes unasked.
constexpr Duration kQuiet = 600ms;
constexpr Duration kRest = 50ms; // for the rest of an answer that does not fit

/// What a number of attentions brought.
struct Samples
{
    int unanswered = 0;
    int wrong = 0;
    LineTrace trace{kSamples};
};

int baudOf(const CommSettings& settings)
{
    return std::stoi(settings.speed);
}

std::optional<PortFault> openAt(const LineUnderCheck& line, const std::string& speed)
{
    if (line.port.isOpen())
        line.port.close();
    if (auto fault = line.port.configure(line.settings.port, speed + ",n,8,1"))
        return fault;
    auto fault = line.port.open();
    if (!fault)
        line.port.discardInput();
    return fault;
}

void sample(const LineUnderCheck& line, Samples& samples)
{
    const Duration sent = line.clock.now();
    line.port.writeByte(kAttention);
    const bool answered = line.port.waitForInput(kReplyWait);
    const std::int16_t reply = answered ? line.port.readByte() : kNoByte;
    samples.trace.add({sent, line.clock.now() - sent, kAttention, reply});
    if (!answered)
        ++samples.unanswered;
    else if (reply != kAcknowledge)
        ++samples.wrong;
    if (reply != kAcknowledge && line.port.waitForInput(kRest))
        line.port.discardInput();
}

/// Gives up early where nothing fits at all.
Samples takeSamples(const LineUnderCheck& line, int count)
{
    constexpr int kEnoughSilence = 2;
    constexpr int kEnoughNoise = 10;
    Samples samples;
    for (int i = 0;
         i < count && samples.unanswered < kEnoughSilence && samples.wrong < kEnoughNoise; ++i)
        sample(line, samples);
    return samples;
}

bool fits(const Samples& samples)
{
    return samples.unanswered == 0 && samples.wrong == 0;
}

LineFinding missing(const QString& device)
{
    return {Kind::PortMissing, QStringLiteral("The port %1 is not there.").arg(device),
            QStringLiteral("Plug the adapter in, or choose another port in Edit > Comm Port or "
                           "Tools > Connection.")};
}

LineFinding notPermitted(const QString& device, const QString& group)
{
    const QString whose =
        group.isEmpty() ? QStringLiteral("Ask for the right to use it.")
                        : QStringLiteral("Make this user a member of the group \"%1\" and log in "
                                         "again.")
                              .arg(group);
    return {Kind::NoPermission, QStringLiteral("This user may not use the port %1.").arg(device),
            whose};
}

LineFinding inUse(const QString& device, const QString& holder)
{
    return {Kind::PortInUse,
            holder.isEmpty() ? QStringLiteral("Another program uses the port %1.").arg(device)
                             : QStringLiteral("The port %1 is in use by %2.").arg(device, holder),
            QStringLiteral("Close that program: only one can talk to the board.")};
}

LineFinding cannotOpen(const LineUnderCheck& line, const PortFault& fault)
{
    const QString reason = QString::fromStdString(fault.description);
    if (line.connection.kind == Connection::Kind::Server)
        return {Kind::NoConnection, reason,
                QStringLiteral("Speed and parity are set at the serial server; Tools > Connection "
                               "has its name and port.")};
    const PortAccess access = line.access();
    if (!access.exists)
        return missing(line.device);
    if (!access.permitted)
        return notPermitted(line.device, access.group);
    return inUse(line.device, access.holder);
}

LineFinding silent(const LineUnderCheck& line)
{
    const QString speed =
        line.connection.kind == Connection::Kind::Server
            ? QStringLiteral("The serial server answers, so look behind it: its speed must be the "
                             "board's, 8 data bits, no parity, 1 stop bit. ")
            : QStringLiteral("Both speeds were tried. ");
    return {Kind::Silent, QStringLiteral("The port is open, but nobody answers."),
            speed + QStringLiteral("Check that the board has power, that the cable is in its PROG "
                                   "port, and that it is the right cable.")};
}

LineFinding noise(int wrong, int of)
{
    return {Kind::Noise,
            QStringLiteral("The line is disturbed: %1 of %2 answers did not fit or did not come.")
                .arg(wrong)
                .arg(of),
            QStringLiteral("Check plugs, shield and earth of the cable, keep it away from motor "
                           "cables, and see that nothing else talks to the board.")};
}

LineFinding wrongSpeed(const std::string& speed)
{
    return {Kind::WrongSpeed,
            QStringLiteral("The board answers at %1.").arg(QString::fromStdString(speed)),
            QStringLiteral("Choose that speed in Edit > Comm Port.")};
}

LineFinding inOrder(const LineTrace& trace, int baud)
{
    const LineFigures figures = lineFigures(trace, baud);
    const QString trip = QStringLiteral("%1 ms").arg(
        std::chrono::duration<double, std::milli>(figures.median).count(), 0, 'f', 1);
    if (const QString advice = slowAdvice(figures, baud); !advice.isEmpty())
        return {Kind::Slow,
                QStringLiteral("The board answers, but slowly: %1 an exchange.").arg(trip), advice};
    return {Kind::InOrder,
            QStringLiteral("The line is in order: all %1 answers came, the median in %2.")
                .arg(figures.answered)
                .arg(trip),
            QStringLiteral("There is nothing to do.")};
}

LineFinding checkOpenPort(const LineUnderCheck& line)
{
    if (line.port.waitForInput(kQuiet)) { // the board never speaks unasked
        line.port.discardInput();
        return noise(1, 1);
    }
    const Samples samples = takeSamples(line, kSamples);
    if (fits(samples))
        return inOrder(samples.trace, baudOf(line.settings));
    const auto count = static_cast<int>(samples.trace.end());
    const int bad = samples.unanswered + samples.wrong;
    if (bad < count)
        return noise(bad, count);
    const std::string other = line.settings.speed == "9600" ? "19200" : "9600";
    if (line.connection.kind != Connection::Kind::Server && !openAt(line, other)) {
        constexpr int kEnough = 3;
        line.port.waitForInput(kQuiet);
        line.port.discardInput();
        if (fits(takeSamples(line, kEnough)))
            return wrongSpeed(other);
    }
    return samples.wrong > 0 ? noise(bad, count) : silent(line);
}

} // namespace

LineFinding checkLine(const LineUnderCheck& line)
{
    if (const auto fault = openAt(line, line.settings.speed))
        return cannotOpen(line, *fault);
    LineFinding finding = checkOpenPort(line);
    line.port.close();
    line.port.configure(line.settings.port, line.settings.speed + ",n,8,1");
    return finding;
}

LineFinding checkOnline(RSComm& link, const Clock& clock, int baud,
                        const std::function<std::uint64_t()>& errors)
{
    const std::uint64_t before = errors();
    const Duration begin = clock.now();
    LineTrace trace(kSamples);
    constexpr int kExchangesOfARead = 4;
    for (int i = 0; i < kSamples && !link.CommError; ++i) {
        const Duration sent = clock.now();
        link.RSRead(reg::kMachineSpeed.address);
        const Duration took = (clock.now() - sent) / kExchangesOfARead;
        trace.add({sent, took, 0, static_cast<std::int16_t>(link.readSucceeded() ? 0 : kNoByte)});
    }
    const auto wrong = static_cast<int>(errors() - before);
    if (link.CommError)
        return {Kind::Silent,
                QStringLiteral("The board was lost during the check, after %1 s.")
                    .arg(std::chrono::duration<double>(clock.now() - begin).count(), 0, 'f', 1),
                QStringLiteral("Check cable and power, then check the line once more.")};
    return wrong > 0 ? noise(wrong, kSamples * kExchangesOfARead) : inOrder(trace, baud);
}

} // namespace tambrix
