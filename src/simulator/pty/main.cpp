#include "simulator/pty/board_server.h"
#include "simulator/pty/options.h"

#include <csignal>
#include <exception>
#include <iostream>

namespace {

constexpr int kWrongUse = 2;

volatile std::sig_atomic_t stopRequested = 0;

void requestStop(int /*signal*/)
{
    stopRequested = 1;
}

void stopOnSignals()
{
    struct sigaction action
    {
    };
    action.sa_handler = requestStop;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        sigaction(signal, &action, nullptr);
    std::signal(SIGPIPE, SIG_IGN); // a reader of the path may have gone
}

int serve(const tambrix::Options& options)
{
    try {
        tambrix::BoardServer server(options);
        server.run(stopRequested);
    } catch (const std::exception& error) {
        std::cerr << "tambrix-board: " << error.what() << '\n';
        return 1;
    }
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    std::string complaint;
    const auto options = tambrix::parseOptions(argc, argv, complaint);
    if (!options) {
        std::cerr << "tambrix-board: " << complaint << "\nTry tambrix-board --help.\n";
        return kWrongUse;
    }
    if (options->help) {
        std::cout << tambrix::helpText();
        return 0;
    }
    stopOnSignals();
    return serve(*options);
}
