#include "demo/chapters.h"

namespace tambrix {

Task demonstration(DemoStage& stage)
{
    co_await demoMainDisplay(stage);
    co_await demoScreens(stage);
    co_await demoData(stage);
    co_await demoMaintenance(stage);
    co_await demoReports(stage);
}

} // namespace tambrix
