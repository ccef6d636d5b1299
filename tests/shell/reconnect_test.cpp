#include "shell/reconnect.h"

#include "data/line_recorder.h"
#include "shell/qt_prompts.h"
#include "tests/support/modal_watch.h"
#include "tests/support/press_rig.h"

#include <QMessageBox>

#include <gtest/gtest.h>

#include <tuple>

using namespace tambrix;
using namespace std::chrono_literals;

namespace {

struct ScriptedSearch : PortSearch
{
    void remember() override { ++remembered; }
    bool present() override
    {
        ++asked;
        return there;
    }

    bool there = true;
    int asked = 0;
    int remembered = 0;
};

/// A program on line that may lose its board, on a virtual clock.
struct ReconnectRig : PressBench
{
    LineRecorder recorder{clock};
    TracedPort linkPort{port, recorder};
    BoxWatch boxes{person};
    ProgramState state{QDir(folder.path()), linkPort, clock, boxes};
    ScriptedSearch search;
    bool mayGoOnline = true;
    int cancelled = 0;
    Reconnect reconnect{
        state,
        port,
        clock,
        search,
        {[this] { return mayGoOnline; }, [this] { setOnline(true); }, [this] { ++cancelled; }}};
    QString note;
    std::vector<std::uint8_t> bytes; ///< of the PC

    ReconnectRig()
    {
        state.InitSetupData();
        boxes.lost = [this] { reconnect.boardLost(); };
        boxes.answered = [this](BoxAnswer answer) { reconnect.boxAnswered(answer); };
        QObject::connect(&reconnect, &Reconnect::noted,
                         [this](const QString& text) { note = text; });
        line.setTap([this](const WireByte& wire) {
            if (wire.direction == WireByte::Direction::ToBoard)
                bytes.push_back(wire.byte);
        });
        reconnect.setEnabled(true);
        setOnline(true);
    }

    void setOnline(bool online)
    {
        state.gLink.OnlineMode = online;
        state.ApplyOnlineMode();
    }

    void userSets(bool online)
    {
        setOnline(online);
        reconnect.userActed();
    }

    /// The cable comes off; a read finds out, its box is answered, and the mode follows.
    void lose()
    {
        line.unplug();
        state.gLink.RSRead("W112");
        if (state.gLink.CommError)
            setOnline(false);
        bytes.clear();
    }

    /// Lets time pass; nothing that is done meanwhile may take any of it.
    void pass(Duration span)
    {
        for (const Duration end = clock.now() + span; clock.now() < end; clock.pause(50ms)) {
            const Duration now = clock.now();
            reconnect.tick();
            if (state.gLink.CommError && !state.gLink.isBusy()) // every pass of a screen says so
                setOnline(false);
            if (!state.gLink.OnlineMode) {
                EXPECT_EQ(clock.now(), now);
            }
        }
    }

    bool online() const { return state.canReachBoard(); }
};

} // namespace

TEST(ReconnectTest, GoesOnLineOnceTheBoardAnswersAndWritesNothing)
{
    ReconnectRig rig;
    EXPECT_EQ(rig.search.remembered, 1);
    rig.lose();
    rig.pass(60s);
    EXPECT_FALSE(rig.online());
    EXPECT_EQ(rig.search.asked, 29); // first 2 s after the loss, then every 2 s
    EXPECT_TRUE(rig.note.contains("Looking for it"));
    rig.line.plugIn();
    rig.pass(3s);
    EXPECT_TRUE(rig.online());
    EXPECT_TRUE(rig.note.contains("On line again"));
    EXPECT_EQ(rig.person.boxes.size(), 1u);
    EXPECT_EQ(rig.bytes, (std::vector<std::uint8_t>{0xFF, 0xFF})); // probe, and Online Data
}

TEST(ReconnectTest, ABoxThatNobodyAnswersIsCancelledAfterAMinute)
{
    ReconnectRig rig;
    rig.person.whileShown = [&rig] {
        rig.pass(59s);
        EXPECT_EQ(rig.cancelled, 0);
        rig.pass(2s);
        EXPECT_GT(rig.cancelled, 0);
    };
    rig.lose();
    EXPECT_TRUE(rig.note.contains("answered with Cancel after 60 s"));
}

TEST(ReconnectTest, LeavesTheModeToTheUser)
{
    using Act = void (*)(ReconnectRig&);
    const Act lose = [](ReconnectRig& rig) { rig.lose(); };
    const Act forbid = [](ReconnectRig& rig) { rig.reconnect.setEnabled(false); };
    const Act goOffline = [](ReconnectRig& rig) { rig.userSets(false); };
    const Act goOnline = [](ReconnectRig& rig) { rig.userSets(true); };
    const Act unplug = [](ReconnectRig& rig) { rig.line.unplug(); };
    const Act plugIn = [](ReconnectRig& rig) { rig.line.plugIn(); };
    const Act vanish = [](ReconnectRig& rig) { rig.search.there = false; };
    const Act silence = [](ReconnectRig& rig) { rig.board.setPowered(false); };
    const Act wait = [](ReconnectRig& rig) { rig.pass(1h); };
    const std::tuple<const char*, std::vector<Act>, bool> cases[] = {
        {"not asked for", {forbid, lose}, false},
        {"switched off meanwhile", {lose, forbid}, false},
        {"goes off line himself", {goOffline}, false},
        {"goes off line meanwhile", {lose, wait, goOffline}, false},
        {"a board that never answered", {goOffline, unplug, goOnline}, false},
        {"never comes back", {vanish, lose, wait}, true},
        {"stays silent", {silence, lose, plugIn, wait}, true}};
    for (const auto& [what, acts, searches] : cases) {
        SCOPED_TRACE(what);
        ReconnectRig rig;
        for (const Act act : acts)
            act(rig);
        EXPECT_FALSE(rig.online());
        rig.line.plugIn();
        rig.search.asked = 0;
        rig.pass(10s);
        EXPECT_EQ(rig.search.asked > 0, searches);
        EXPECT_FALSE(rig.online());
        EXPECT_FALSE(rig.port.isOpen());
        EXPECT_LE(rig.person.boxes.size(), 1u);
        for (const std::uint8_t byte : rig.bytes)
            EXPECT_EQ(byte, 0xFF);
    }
}

TEST(ReconnectTest, WaitsWhileGoingOnLineWouldWrite)
{
    ReconnectRig rig;
    rig.mayGoOnline = false;
    rig.lose();
    rig.line.plugIn();
    rig.pass(10s);
    EXPECT_FALSE(rig.online());
    EXPECT_TRUE(rig.note.contains("The board answers again"));
    rig.mayGoOnline = true; // another screen is in front
    rig.pass(3s);
    EXPECT_TRUE(rig.online());
}

TEST(ReconnectTest, RetryLeavesTheLinkToItself)
{
    ReconnectRig rig;
    rig.person.answers = {BoxAnswer::Retry};
    rig.person.whileShown = [&rig] { rig.line.plugIn(); };
    rig.line.unplug();
    rig.state.gLink.RSRead("W112");
    EXPECT_EQ(rig.note, "");
    rig.search.asked = 0;
    rig.pass(10s);
    EXPECT_EQ(rig.search.asked, 0);
}

TEST(ReconnectTest, CancelsTheRealBox)
{
    QtPrompts real;
    BoxWatch boxes(real);
    BoxAnswer seen = BoxAnswer::Ok;
    boxes.answered = [&seen](BoxAnswer answer) { seen = answer; };
    const ModalWatch<QMessageBox> hand([](QMessageBox&) { BoxWatch::cancelBox(); });
    boxes.showMessage({BoxIcon::Critical, BoxButtons::RetryCancel, "WARNING - Communication Error!",
                       "Cannot Communicate with Target Board."});
    EXPECT_EQ(seen, BoxAnswer::Cancel);
}
