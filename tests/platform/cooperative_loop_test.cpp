#include "platform/cooperative_loop.h"
#include "tests/support/press_rig.h"

#include <QTimer>

#include <gtest/gtest.h>

using namespace tambrix;
using namespace std::chrono_literals;

namespace {

/// Counts how often a frame of a procedure is alive.
struct Witness
{
    explicit Witness(int& alive) : m_alive(alive) { ++m_alive; }
    ~Witness() { --m_alive; }
    Witness(const Witness&) = delete;
    Witness& operator=(const Witness&) = delete;

private:
    int& m_alive;
};

struct LoopRig
{
    LoopRig() { other.setSingleShot(true); }

    int alive = 0;
    int turns = 0;
    bool mayRun = true;
    QTimer other; // comes due in every turn
    CooperativeLoop loop{[this] { return mayRun; }};

    Task inner()
    {
        const Witness witness(alive);
        co_await loop.pendingEvents();
        EXPECT_FALSE(other.isActive()) << "waits since the turn before " << turns;
        other.start(0);
        ++turns;
    }

    Task body()
    {
        const Witness witness(alive);
        for (;;)
            co_await inner();
    }

    Task stopping()
    {
        const Witness witness(alive);
        co_await loop.pendingEvents();
        loop.stop();
        ++turns;
        co_await loop.pendingEvents();
        ++turns; // never reached
    }
};

} // namespace

TEST(CooperativeLoop, ServesWhatCameDueBetweenItsTurnsAndEndsWhereItStands)
{
    LoopRig rig;
    rig.mayRun = false;
    rig.loop.start(rig.body());
    PressRig::turns(20);
    EXPECT_EQ(rig.turns, 0);
    rig.mayRun = true;
    ASSERT_TRUE(PressRig::eventually([&] { return rig.turns > 20; }));
    EXPECT_EQ(rig.alive, 2);
    rig.loop.stop();
    EXPECT_EQ(rig.alive, 0);
    const int turns = rig.turns;
    PressRig::turns(10);
    EXPECT_EQ(rig.turns, turns);
}

TEST(CooperativeLoop, CanBeStoppedFromInsideAndStartedAgain)
{
    LoopRig rig;
    rig.loop.start(rig.stopping());
    ASSERT_TRUE(PressRig::eventually([&] { return rig.turns == 1; }));
    PressRig::turns(10);
    EXPECT_EQ(rig.turns, 1);
    EXPECT_EQ(rig.alive, 0);
    EXPECT_FALSE(rig.loop.running());
    rig.loop.start(rig.body());
    ASSERT_TRUE(PressRig::eventually([&] { return rig.turns > 5; }));
    rig.turns = 1;
    rig.loop.start(rig.inner()); // in place of the other, which is waiting
    ASSERT_TRUE(PressRig::eventually([&] { return !rig.loop.running(); }));
    EXPECT_EQ(rig.turns, 2);
    EXPECT_EQ(rig.alive, 0);
}

TEST(CooperativeLoop, DestroyedInAPauseDestroysItsFrames)
{
    int alive = 0;
    {
        CooperativeLoop loop([] { return true; });
        const auto body = [](CooperativeLoop& turns, int& count) -> Task {
            const Witness witness(count);
            co_await turns.pause(1h);
        };
        loop.start(body(loop, alive));
        ASSERT_TRUE(PressRig::eventually([&] { return alive == 1; }));
    }
    EXPECT_EQ(alive, 0);
}
