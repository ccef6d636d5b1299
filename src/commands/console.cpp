#include "commands/console.h"

#include "commands/failure.h"
#include "platform/terminal.h"

#include <QJsonDocument>

namespace tambrix {

using namespace std::chrono_literals;

namespace {

constexpr auto kProgressInterval = 100ms;
constexpr int kBarWidth = 30;

QString bar(int done, int of)
{
    const int filled = of > 0 ? kBarWidth * done / of : 0;
    return u'[' + QString(filled, u'#') + QString(kBarWidth - filled, u'.') + u']';
}

void showInPlace(const QString& line)
{
    std::fputs((u'\r' + line).toUtf8().constData(), stderr);
    std::fflush(stderr);
}

} // namespace

void Console::print(const QString& line)
{
    endProgress();
    write(stdout, line);
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0)
        throw Failure{ExitCode::File, QStringLiteral("nobody reads the output any more")};
}

void Console::print(const QJsonObject& object)
{
    print(QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)));
}

void Console::note(const QString& line)
{
    if (!m_quiet)
        complain(line);
}

void Console::complain(const QString& line)
{
    endProgress();
    write(stderr, QStringLiteral("tambrix-cli: ") + oneLine(line));
    std::fflush(stderr);
}

void Console::progress(const QString& doing, int done, int of)
{
    if (mayShowProgress(done >= of))
        showInPlace(QStringLiteral("%1 %2 %3 of %4").arg(doing, bar(done, of)).arg(done).arg(of));
}

void Console::status(const QString& doing)
{
    if (mayShowProgress(false))
        showInPlace(doing);
}

bool Console::mayShowProgress(bool last)
{
    const auto now = std::chrono::steady_clock::now();
    const bool due = !m_progressShown || last || now - m_lastProgress >= kProgressInterval;
    if (m_quiet || !due || !isTerminal(stderr))
        return false;
    m_progressShown = true;
    m_lastProgress = now;
    return true;
}

void Console::endProgress()
{
    if (!m_progressShown)
        return;
    m_progressShown = false;
    std::fputs("\n", stderr);
}

void Console::write(std::FILE* stream, const QString& line) const
{
    if (m_silent)
        return;
    const QByteArray bytes = line.toUtf8() + '\n';
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stream);
}

QString oneLine(const QString& text)
{
    return text.simplified();
}

} // namespace tambrix
