#include "commands/interruption.h"

#include "commands/failure.h"

#include <csignal>

namespace tambrix {

namespace {

volatile std::sig_atomic_t g_interrupted = 0; // a signal handler reaches nothing else

extern "C" void noteInterruption(int number)
{
    g_interrupted = 1;
    std::signal(number, SIG_DFL);
}

} // namespace

void catchInterruptions()
{
    std::signal(SIGINT, noteInterruption);
    std::signal(SIGTERM, noteInterruption);
#ifdef SIGBREAK
    std::signal(SIGBREAK, noteInterruption); // Windows: Ctrl-Break and a closed console window
#endif
#ifdef SIGPIPE
    std::signal(SIGPIPE, SIG_IGN); // a reader that has gone is told by the write that fails
#endif
}

bool interrupted()
{
    return g_interrupted != 0;
}

void stopIfInterrupted(const char* done)
{
    if (interrupted())
        throw Failure{ExitCode::Interrupted, QStringLiteral("interrupted") +
                                                 (*done == 0 ? QString() : QStringLiteral("; ")) +
                                                 QString::fromUtf8(done)};
}

} // namespace tambrix
