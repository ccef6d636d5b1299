#include "demo/chapters.h"

namespace tambrix {

namespace {

using Chapter = Task (*)(DemoStage& stage);

/// In order. Each begins and ends off line, with the main window in front.
constexpr Chapter kChapters[] = {demoMainDisplay, demoLabels, demoScreens, demoData,   demoCompare,
                                 demoMaintenance, demoLine,   demoHistory, demoReports};

} // namespace

Task demonstration(DemoStage& stage)
{
    for (const Chapter chapter : kChapters)
        co_await chapter(stage);
}

} // namespace tambrix
