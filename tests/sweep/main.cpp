// The fault sweep: every scenario, every fault, at every exchange, on both kinds of board.
//   sweep          a sample: every 37th exchange, some faults of each kind
//   sweep --full   everything; prints the table
// Ends with 1 when something happened that must never happen.

#include "tests/sweep/sweep.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

using namespace tambrix;

namespace {

constexpr std::size_t kSampleStride = 37;

void printRow(const std::string& name, const EndingCounts& counts, std::size_t forbidden)
{
    std::printf("%-26s", name.c_str());
    std::size_t runs = 0;
    for (const std::size_t count : counts)
        runs += count;
    std::printf("%8zu", runs);
    for (const std::size_t count : counts)
        std::printf("%9zu", count);
    std::printf("%11zu\n", forbidden);
}

void addTo(EndingCounts& sum, const EndingCounts& counts)
{
    std::ranges::transform(sum, counts, sum.begin(), std::plus());
}

std::size_t forbiddenIn(const EndingCounts& counts, const NamedFault& fault, HalfFrames halves)
{
    std::size_t sum = 0;
    for (std::size_t i = 0; i < counts.size(); ++i)
        sum += isForbidden(static_cast<Ending>(i), fault, halves) ? counts[i] : 0;
    return sum;
}

/// Prints the table of one kind of board; returns how often something forbidden happened.
std::size_t sweepBoard(HalfFrames halves, const std::vector<NamedFault>& faults, std::size_t stride)
{
    std::printf("\nA board that %s half frames\n%-26s%8s%9s%9s%9s%9s%9s%9s%9s%9s%11s\n",
                halves == HalfFrames::Dropped ? "drops" : "keeps", "", "runs", "right", "reported",
                "misread", "misstored", "foreign", "stuck", "hang", "crash", "forbidden");
    std::vector<EndingCounts> perFault(faults.size());
    EndingCounts all{};
    std::size_t forbidden = 0;
    for (const Scenario& scenario : scenarios()) {
        EndingCounts sum{};
        std::size_t wrong = 0;
        const CleanRun clean(scenario, halves);
        for (std::size_t i = 0; i < faults.size(); ++i) {
            const EndingCounts counts =
                sweepScenario(scenario, halves, clean, faults[i], 5 * i % stride, stride);
            addTo(sum, counts);
            addTo(perFault[i], counts);
            wrong += forbiddenIn(counts, faults[i], halves);
        }
        printRow(scenario.name, sum, wrong);
        addTo(all, sum);
        forbidden += wrong;
    }
    printRow("all", all, forbidden);
    std::printf("\n");
    for (std::size_t i = 0; i < faults.size(); ++i)
        printRow("  " + faults[i].name, perFault[i], forbiddenIn(perFault[i], faults[i], halves));
    return forbidden;
}

} // namespace

int main(int argc, char* argv[])
{
    const bool full = argc > 1 && std::strcmp(argv[1], "--full") == 0;
    auto faults = full ? everyFault() : faultSample();
    // Only answers: a lost byte of a program record is noticed when the rest has been stored.
    std::erase_if(faults, [](const NamedFault& fault) {
        return fault.fault.kind == LineFault::Kind::LoseRequest;
    });
    const std::size_t stride = full ? 1 : kSampleStride;
    std::size_t forbidden = 0;
    for (const HalfFrames halves : {HalfFrames::Dropped, HalfFrames::Kept})
        forbidden += sweepBoard(halves, faults, stride);
    return forbidden == 0 ? 0 : 1;
}
