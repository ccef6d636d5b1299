#include "data/trace_text.h"

#include "data/line_frames.h"
#include "data/own_file.h"
#include "data/whole_file.h"

#include <QBuffer>
#include <QDateTime>
#include <QDir>

#include <algorithm>

namespace tambrix {

namespace {

constexpr qint64 kLongestLine = 120;      // bytes
constexpr qint64 kLongestFile = 16 << 20; // bytes; what is kept while somebody watches takes 5 MB
constexpr const char* kSecretText = "**";
constexpr std::uint64_t kKeptExchanges = 2000;
constexpr qsizetype kKeptFiles = 20;
const QString kKeptNames = QStringLiteral("Trace *-*-* *-*-*.txt");

/// Heads a text that begins while the board is in a mode: its bytes alone would not tell.
const QByteArray kModeLineBegin = QByteArrayLiteral("# board in ");
const QByteArray kModeLineEnd = QByteArrayLiteral(" mode");

double seconds(Duration time)
{
    return std::chrono::duration<double>(time).count();
}

void addByte(QByteArray& text, Duration time, char direction, std::int16_t byte)
{
    if (byte == kNoByte)
        return;
    const QByteArray shown = byte == kSecretByte
                                 ? QByteArray(kSecretText)
                                 : QByteArray::number(byte, 16).rightJustified(2, '0').toUpper();
    text += QByteArray::number(seconds(time), 'f', 6).rightJustified(12) + ' ' + direction + ' ' +
            shown + '\n';
}

/// One line of a trace.
struct TracedByte
{
    Duration time{};
    bool toBoard = false;
    std::int16_t byte = kNoByte;
};

std::optional<TracedByte> tracedByte(const QByteArray& line)
{
    const QList<QByteArray> words = line.simplified().split(' ');
    if (words.size() != 3 || (words[1] != ">" && words[1] != "<"))
        return std::nullopt;
    constexpr double kLongest = 1e9; // s
    bool timeFits = false;
    bool byteFits = false;
    const double time = words[0].toDouble(&timeFits);
    const bool secret = words[2] == kSecretText;
    const int byte = secret ? kSecretByte : words[2].toInt(&byteFits, 16);
    if (!timeFits || !(time >= 0 && time < kLongest) || (!secret && !byteFits) || byte > 0xFF ||
        words[2].size() != 2 || (!secret && byte < 0))
        return std::nullopt;
    return TracedByte{std::chrono::duration_cast<Duration>(std::chrono::duration<double>(time)),
                      words[1] == ">", static_cast<std::int16_t>(byte)};
}

/// Puts bytes together to exchanges: a byte to the board with the one that follows it back.
class Pairing
{
public:
    explicit Pairing(LineTrace& trace) : m_trace(trace) {}
    ~Pairing() { finish(); }
    Pairing(const Pairing&) = delete;
    Pairing& operator=(const Pairing&) = delete;

    void beginAfter(const LineFrames& before)
    {
        m_trace.beginAfter(before);
        m_mask = PasscodeMask(before);
    }

    void take(const TracedByte& byte)
    {
        if (byte.toBoard) {
            finish(byte.time);
            m_open = LineExchange{byte.time, {}, byte.byte, kNoByte};
            return;
        }
        LineExchange exchange = m_open.value_or(LineExchange{byte.time, {}, kNoByte, kNoByte});
        exchange.took = byte.time - exchange.sent;
        exchange.in = byte.byte;
        m_open.reset();
        m_trace.add(m_mask.masked(exchange));
    }

private:
    void finish(std::optional<Duration> givenUp = std::nullopt)
    {
        if (!m_open)
            return;
        m_open->took = givenUp.value_or(m_open->sent) - m_open->sent;
        m_trace.add(m_mask.masked(*m_open));
        m_open.reset();
    }

    LineTrace& m_trace;
    PasscodeMask m_mask;
    std::optional<LineExchange> m_open;
};

/// The line that heads a text beginning here; nothing where the bytes will tell.
QByteArray modeLine(const LineFrames& frames)
{
    const std::string_view mode = frames.mode();
    return mode.empty()
               ? QByteArray()
               : kModeLineBegin + QByteArray(mode.data(), static_cast<qsizetype>(mode.size())) +
                     kModeLineEnd + '\n';
}

std::optional<LineFrames> framesOf(const QByteArray& modeLine)
{
    const QByteArray line = modeLine.trimmed();
    const qsizetype length = line.size() - kModeLineBegin.size() - kModeLineEnd.size();
    if (length < 0 || !line.startsWith(kModeLineBegin) || !line.endsWith(kModeLineEnd))
        return std::nullopt; // the blank between may be one and the same
    LineFrames frames;
    const QByteArray mode = line.mid(kModeLineBegin.size(), length);
    if (!frames.beginIn(std::string_view(mode.data(), static_cast<std::size_t>(mode.size()))))
        return std::nullopt;
    return frames;
}

} // namespace

QByteArray traceText(const LineTrace& trace, std::uint64_t most)
{
    LineFrames frames = trace.framesBefore();
    std::uint64_t number = trace.begin();
    const std::uint64_t first = trace.end() - std::min(most, trace.end() - trace.begin());
    for (; number != trace.end() && (number < first || !frames.betweenFrames()); ++number)
        frames.take(trace.at(number));
    QByteArray text = modeLine(frames);
    for (; number != trace.end(); ++number) {
        const LineExchange& exchange = trace.at(number);
        addByte(text, exchange.sent, '>', exchange.out);
        addByte(text, exchange.sent + exchange.took, '<', exchange.in);
    }
    return text;
}

std::optional<QString> keepTrace(const LineTrace& trace, const QDir& folder, const QDateTime& now)
{
    const QString name = now.toString(QStringLiteral("'Trace' yyyy-MM-dd HH-mm-ss'.txt'"));
    if (auto reason = makeOwnFolder(folder))
        return reason;
    if (auto reason = writeOwnFile(folder.filePath(name), traceText(trace, kKeptExchanges)))
        return reason;
    QStringList kept = folder.entryList({kKeptNames}, QDir::Files, QDir::Name);
    for (; kept.size() > kKeptFiles; kept.removeFirst())
        QFile::remove(folder.filePath(kept.constFirst()));
    return std::nullopt;
}

QString readTrace(QIODevice& text, LineTrace& trace)
{
    Pairing pairing(trace);
    for (int number = 1; !text.atEnd(); ++number) {
        const QByteArray line = text.readLine(kLongestLine);
        if (line.trimmed().isEmpty())
            continue;
        if (const auto before = framesOf(line); before && number == 1) {
            pairing.beginAfter(*before);
            continue;
        }
        const auto byte = tracedByte(line);
        if (!byte)
            return QStringLiteral("Line %1 is none of a trace: %2")
                .arg(number)
                .arg(QString::fromLatin1(line.left(60)).simplified());
        pairing.take(*byte);
    }
    return {};
}

QString loadTrace(const QString& path, LineTrace& trace)
{
    auto content = readWholeFile(path, kLongestFile);
    if (!content)
        return QStringLiteral("The file cannot be used: %1.").arg(whyUnread(path, kLongestFile));
    QBuffer text(&*content);
    text.open(QIODevice::ReadOnly);
    return readTrace(text, trace);
}

} // namespace tambrix
