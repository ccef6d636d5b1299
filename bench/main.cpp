#include "app/event_loop.h"
#include "bench/benchmarks.h"

#include <QCoreApplication>

#include <cstdio>
#include <exception>

using namespace tambrix;
using namespace tambrix::bench;

namespace {

int runBenchmarks(const QStringList& arguments)
{
    const QStringList chosen = arguments.mid(1);
    const auto wanted = [&](const char* name) {
        return chosen.isEmpty() || chosen.contains(QLatin1String(name));
    };
    try {
        if (wanted("exchange"))
            exchangeCost();
        if (wanted("wire"))
            wireEfficiency();
        if (wanted("download"))
            programDownload();
        if (wanted("start"))
            startCost(QCoreApplication::applicationFilePath());
        if (wanted("window"))
            windowCost(QCoreApplication::applicationFilePath());
        if (wanted("screens"))
            screenPasses(QCoreApplication::applicationFilePath());
        if (wanted("transfer"))
            transferCost(QCoreApplication::applicationFilePath());
        if (wanted("monitor"))
            monitorCost(QCoreApplication::applicationFilePath());
        if (wanted("report"))
            reportPdf(QCoreApplication::applicationFilePath());
        if (wanted("datasets"))
            datasetsCost(QCoreApplication::applicationFilePath());
        if (wanted("history"))
            historyCost(QCoreApplication::applicationFilePath());
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "tambrix_bench: %s\n", failure.what());
        return 1;
    }
    return 0;
}

} // namespace

/// tambrix_bench
/// [exchange|wire|download|start|window|screens|transfer|monitor|report|datasets|history]...
int main(int argc, char* argv[])
{
    useOwnEventLoop(); // as the program itself
    if (argc == 3 && QLatin1String(argv[1]) == QLatin1String("--window-process"))
        return windowProcess(argc, argv, QString::fromLocal8Bit(argv[2]));
    if (argc == 3 && QLatin1String(argv[1]) == QLatin1String("--start-process"))
        return startProcess(argc, argv, QString::fromLocal8Bit(argv[2]));
    if (argc == 2 && QLatin1String(argv[1]) == QLatin1String("--bare-process"))
        return bareStartProcess(argc, argv);
    if (argc == 2 && QLatin1String(argv[1]) == QLatin1String("--screens-process"))
        return screensProcess(argc, argv);
    if (argc == 2 && QLatin1String(argv[1]) == QLatin1String("--monitor-process"))
        return monitorProcess(argc, argv);
    if (argc == 2 && QLatin1String(argv[1]) == QLatin1String("--transfer-process"))
        return transferProcess(argc, argv);
    if (argc == 2 && QLatin1String(argv[1]) == QLatin1String("--report-process"))
        return reportProcess(argc, argv);
    if (argc == 2 && QLatin1String(argv[1]) == QLatin1String("--datasets-process"))
        return datasetsProcess(argc, argv);
    if (argc == 2 && QLatin1String(argv[1]) == QLatin1String("--history-process"))
        return historyProcess(argc, argv);
    const QCoreApplication application(argc, argv);
    return runBenchmarks(QCoreApplication::arguments());
}
