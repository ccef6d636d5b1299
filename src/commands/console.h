#pragma once

#include <QJsonObject>
#include <QString>

#include <chrono>
#include <cstdio>

namespace tambrix {

/// The two output streams of the program. Results go to the standard output, everything else to
/// the error stream: what is wrong, warnings, and a progress bar where a person is watching. All of
/// it is UTF-8 on every system.
class Console
{
public:
    Console(bool quiet, bool json) : m_quiet(quiet), m_json(json) {}
    ~Console() { endProgress(); }
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    /// Says nothing at all from now on: the exit code is enough for the caller.
    void setSilent() { m_silent = true; }

    /// Whether results are wanted as JSON.
    bool json() const { return m_json; }

    /// One line of result. Throws Failure (exit code 5) when nobody takes it any more.
    void print(const QString& line);
    /// One JSON object, on one line.
    void print(const QJsonObject& object);

    /// One line on the error stream that tells what is going on; not with --quiet.
    void note(const QString& line);
    /// One line on the error stream that tells what is wrong.
    void complain(const QString& line);

    /// Shows `done` of `of` values of what `doing` says, at most ten times a second, where the
    /// error stream is a terminal and --quiet was not given.
    void progress(const QString& doing, int done, int of);
    /// The same for work whose end is not known: a line that replaces the one before.
    void status(const QString& doing);
    /// Removes the progress bar.
    void endProgress();

private:
    void write(std::FILE* stream, const QString& line) const;

    bool mayShowProgress(bool last);

    bool m_quiet;
    bool m_silent = false;
    bool m_json;
    bool m_progressShown = false;
    std::chrono::steady_clock::time_point m_lastProgress;
};

/// A text on one line: line ends become blanks, several blanks one.
QString oneLine(const QString& text);

} // namespace tambrix
