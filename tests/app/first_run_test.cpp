#include "app/first_run.h"
#include "tests/support/window_rig.h"

#include <QFile>
#include <QGroupBox>

#include <gtest/gtest.h>

using namespace tambrix;

namespace {

bool showsFirstSteps(const WindowRig& rig)
{
    return rig.control<QGroupBox>("fraFirstSteps").isVisible();
}

} // namespace

TEST(FirstRunTest, FirstStepsAreShownUntilAControllerHasAnsweredOnce)
{
    WindowRig rig;
    const QString mark = rig.state.dataRoot.filePath("connected");
    const FirstRun first(rig.state, false);
    EXPECT_TRUE(rig.eventually([&] { return showsFirstSteps(rig); }));
    rig.board.setPowered(false);
    rig.window->goOnline();
    rig.window->goOffline();
    EXPECT_FALSE(QFile::exists(mark)) << "nobody has answered";
    EXPECT_TRUE(rig.eventually([&] { return showsFirstSteps(rig); }));
    rig.board.setPowered(true);
    rig.window->goOnline();
    EXPECT_TRUE(QFile::exists(mark));
    rig.window->goOffline();
    EXPECT_TRUE(rig.eventually([&] { return !showsFirstSteps(rig); }));
    const FirstRun next(rig.state, false);
    EXPECT_TRUE(rig.state.everConnected);
}
