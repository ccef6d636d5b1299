#include "data/restore.h"

#include "data/controller_reading.h"
#include "tests/support/line_faults.h"
#include "tests/support/link_rig.h"

using namespace tambrix;

namespace {

constexpr int kFirst = 99; // label 5: ON of ductors 6 to 8, CYCLE of ductors 1 to 3
constexpr int kLast = 104;
constexpr int kFirstWord = 102;
constexpr int kEntries = kLast - kFirst + 1;

/// A stopped press on line whose label 5 holds other values than those to be restored.
struct RestoreRig : LinkRig
{
    RestoreRig()
    {
        board.press().stop();
        for (int entry = kFirst; entry <= kLast; ++entry)
            poke(entry, onBoard(entry));
        openQuietly();
    }

    static const SetupDataRecord& own()
    {
        static const SetupDataRecord record = defaultSetupData({});
        return record;
    }
    static const std::string& address(int entry)
    {
        return own().Address[static_cast<std::size_t>(entry)];
    }
    static bool isByte(int entry) { return entry < kFirstWord; }
    static int onBoard(int entry) { return isByte(entry) ? entry : 0x0101 * entry; }
    static int wanted(int entry) { return isByte(entry) ? entry + 100 : 0x0101 * (entry + 100); }
    static std::vector<RestoreRow> plan()
    {
        std::vector<RestoreRow> rows;
        for (int entry = kFirst; entry <= kLast; ++entry)
            rows.push_back({address(entry), wanted(entry), WriteState::NotWritten, 0});
        return rows;
    }

    static std::uint16_t place(const std::string& register_)
    {
        return static_cast<std::uint16_t>(std::stoi(register_.substr(1)));
    }
    void poke(int entry, int value)
    {
        if (isByte(entry))
            board.poke(place(address(entry)), static_cast<std::uint8_t>(value));
        else
            board.pokeWord(place(address(entry)), static_cast<std::uint16_t>(value));
    }
    int peek(const std::string& register_) const
    {
        const std::uint16_t a = place(register_);
        return register_.front() == 'B' ? board.peek(a) : board.peekWord(a);
    }

    template <typename Engine> static void run(Engine& engine, int steps = 5000)
    {
        for (; steps > 0 && !engine.ended(); --steps)
            engine.step();
    }

    /// Every row tells the truth about the board's memory.
    void expectTrue(const std::vector<RestoreRow>& rows) const
    {
        for (const RestoreRow& row : rows) {
            SCOPED_TRACE(row.address);
            const int held = peek(row.address);
            if (row.state == WriteState::NotWritten) {
                EXPECT_NE(held, row.value);
            } else if (row.state != WriteState::Unknown) {
                EXPECT_EQ(held, row.state == WriteState::Different ? row.found : row.value);
            }
        }
    }
};

template <typename Session> void sweep(std::size_t exchanges, Session session)
{
    sweepFaults(exchanges, [&](std::size_t k, const NamedFault& fault) {
        RestoreRig rig;
        rig.line.setFault(k, fault.fault);
        session(rig, fault.portDies());
    });
}

} // namespace

TEST(Restore, ListAgreesWithTheBoardUnderEveryLineFault)
{
    RestoreRig clean;
    Restore undisturbed(clean.link, RestoreRig::plan());
    RestoreRig::run(undisturbed);
    EXPECT_EQ(countOf(undisturbed.rows(), WriteState::Verified), kEntries);
    EXPECT_EQ(undisturbed.progress(), undisturbed.total());
    sweep(clean.line.exchanges(), [](RestoreRig& rig, bool unplugged) {
        Restore restore(rig.link, RestoreRig::plan());
        RestoreRig::run(restore);
        rig.expectTrue(restore.rows());
        EXPECT_EQ(rig.link.CommError, unplugged);
        EXPECT_LE(countOf(restore.rows(), WriteState::Unknown), 1);
        rig.line.clearFaults();
        rig.line.plugIn();
        rig.open();
        Restore retry(rig.link, restore.rows());
        RestoreRig::run(retry);
        EXPECT_EQ(countOf(retry.rows(), WriteState::Verified), kEntries)
            << "Retry goes on from there";
        rig.expectTrue(retry.rows());
    });
}

TEST(Restore, LeftAtAnyStepItTellsTheTruth)
{
    for (int steps = 0; steps <= 2 * kEntries; ++steps) {
        RestoreRig rig;
        Restore restore(rig.link, RestoreRig::plan());
        RestoreRig::run(restore, steps);
        rig.expectTrue(restore.rows());
        EXPECT_EQ(countOf(restore.rows(), WriteState::NotWritten), std::max(0, kEntries - steps));
        EXPECT_EQ(countOf(restore.rows(), WriteState::Verified), std::max(0, steps - kEntries));
    }
}

TEST(Restore, ValueThatThePressChangesBackIsShownAsFound)
{
    RestoreRig rig;
    Restore restore(rig.link, RestoreRig::plan());
    RestoreRig::run(restore, kEntries);
    rig.poke(kFirst + 3, 9);
    RestoreRig::run(restore);
    EXPECT_EQ(restore.rows()[3].state, WriteState::Different);
    EXPECT_EQ(restore.rows()[3].found, 9);
    EXPECT_EQ(countOf(restore.rows(), WriteState::Verified), kEntries - 1);
}

TEST(ConfirmedRead, ReadsWhatTheBoardHoldsUnderEveryLineFault)
{
    std::vector<std::string> addresses;
    std::vector<std::optional<std::int32_t>> expected; // all but two as on the board
    for (int entry = kFirst; entry <= kLast; ++entry) {
        addresses.push_back(RestoreRig::address(entry));
        expected.push_back(RestoreRig::onBoard(entry) + (entry % 3 == 0 ? 7 : 0));
    }
    RestoreRig clean;
    ConfirmedRead undisturbed(clean.link, addresses, expected, 8);
    RestoreRig::run(undisturbed);
    sweep(clean.line.exchanges(), [&](RestoreRig& rig, bool unplugged) {
        ConfirmedRead read(rig.link, addresses, expected, 8);
        RestoreRig::run(read);
        EXPECT_EQ(rig.link.CommError, unplugged);
        for (std::size_t i = 0; i < addresses.size(); ++i) {
            if (read.known(i)) {
                EXPECT_EQ(read.data().Value[i], rig.peek(addresses[i])) << i;
            } else {
                EXPECT_TRUE(unplugged);
            }
        }
    });
}

TEST(ControllerReading, BringsAllEntriesAndWhatIsRunning)
{
    RestoreRig rig;
    rig.board.pokeWord(686, 5);
    rig.board.poke(722, 33);
    rig.board.pokeWord(744, 290);
    SetupDataRecord expected = RestoreRig::own();
    ControllerReading reading(rig.link, &expected);
    RestoreRig::run(reading);
    ASSERT_FALSE(reading.failed()) << reading.failure().toStdString();
    EXPECT_EQ(reading.progress(), reading.total());
    for (std::size_t i = 8; i < reading.data().Address.size(); ++i)
        ASSERT_EQ(reading.data().Value[i], rig.peek(reading.data().Address[i])) << i;
    ASSERT_TRUE(reading.running());
    EXPECT_EQ(reading.running()->label, 5);
    EXPECT_EQ(reading.running()->value[2], 33);
    EXPECT_EQ(reading.running()->value[15], 290);
}

TEST(ControllerReading, LabelChangedMeanwhileLeavesNoRunningValues)
{
    RestoreRig rig;
    ControllerReading reading(rig.link);
    RestoreRig::run(reading, 1000);
    rig.board.pokeWord(686, 7);
    RestoreRig::run(reading);
    EXPECT_FALSE(reading.failed());
    EXPECT_FALSE(reading.running());
}

TEST(ControllerReading, SaysWhereTheControllerFellSilent)
{
    RestoreRig rig;
    ControllerReading reading(rig.link);
    RestoreRig::run(reading, 700);
    rig.line.unplug();
    RestoreRig::run(reading);
    EXPECT_TRUE(reading.failed());
    EXPECT_TRUE(reading.failure().startsWith("The controller did not answer at "))
        << reading.failure().toStdString();
}
