#include "data/bulk_transfer.h"
#include "data/register_check.h"

#include "tests/support/board_bytes.h"
#include "tests/support/line_faults.h"
#include "tests/support/press_rig.h"

#include <gtest/gtest.h>

#include <tuple>

using namespace tambrix;

namespace {

using Kind = LineFault::Kind;

constexpr LabelRange kLabel5{5, 5, false};
constexpr int kFirst = 94;
constexpr int kLast = 109;
constexpr int kEntries = kLast - kFirst + 1;
constexpr int kUpload = transfer_code::kLabelData;
constexpr int kDownload = transfer_code::kDownload + kUpload;

std::size_t slot(int entry)
{
    return static_cast<std::size_t>(entry);
}

/// A press whose label 5 differs in every byte from the working data.
struct TransferRig : PressRig
{
    TransferRig()
    {
        board.press().stop();
        goOnline();
        for (int entry = kFirst; entry <= kLast; ++entry)
            state.gLink.RSWrite(state.gWorkingData.Address[slot(entry)],
                                std::to_string(onBoard(entry)));
        for (int entry = kFirst; entry <= kLast; ++entry)
            state.gWorkingData.Value[slot(entry)] = inData(entry);
        line.clearFaults();
        before = bytesAtRest(board);
    }

    static bool isByte(int entry) { return entry < kFirst + kDuctors; }
    static int onBoard(int entry) { return isByte(entry) ? entry : 0x0101 * entry; }
    static int inData(int entry) { return isByte(entry) ? entry + 100 : 0x0101 * (entry + 100); }

    /// Runs a transfer to its end and returns whether the link broke.
    bool run(int code)
    {
        BulkTransfer transfer(state.gLink, state.gWorkingData, transferPlan(code, kLabel5));
        for (int steps = 0; !transfer.ended(); ++steps) {
            EXPECT_LT(steps, 200);
            transfer.step();
        }
        findings = transfer.findings();
        return transfer.linkBroken();
    }

    int entriesInData(int expected(int)) const
    {
        int count = 0;
        for (int entry = kFirst; entry <= kLast; ++entry)
            count += state.gWorkingData.Value[slot(entry)] == expected(entry);
        return count;
    }
    int soundEntries() const { return entriesInData(onBoard) + entriesInData(inData); }

    std::vector<std::uint8_t> before;
    std::vector<EntryFinding> findings;
};

using Check = std::function<void(TransferRig& rig, const TransferRig& undisturbed, bool failed)>;

/// Every fault at every exchange of one label's transfer.
void sweep(int code, const Check& check)
{
    TransferRig undisturbed;
    EXPECT_FALSE(undisturbed.run(code));
    const std::size_t exchanges = undisturbed.line.exchanges();
    ASSERT_GT(exchanges, 40U);
    sweepFaults(exchanges, [&](std::size_t k, const NamedFault& fault) {
        TransferRig rig;
        rig.line.setFault(k, fault.fault);
        const bool failed = rig.run(code);
        EXPECT_EQ(failed, fault.portDies()) << "whether the user is told";
        EXPECT_EQ(rig.person.boxes.size(), failed ? 1U : 0U);
        EXPECT_TRUE(rig.findings.empty()) << "a single fault is made good";
        // The line has no checksum: one data byte changed or doubled on its way looks like
        // any other. All else is noticed.
        EXPECT_GE(rig.soundEntries(), fault.bringsWrongByte() ? kEntries - 1 : kEntries);
        check(rig, undisturbed, failed);
    });
}

} // namespace

TEST(TransferPlan, KnowsItsGroups)
{
    const std::tuple<int, int, int, std::optional<int>> cases[] = {
        {0, 8, 12, 6}, {1, 0, 7, 9}, {2, 94, 141, 49}, {4, 0, 1613, 1614}, {3, 0, 0, {}}};
    for (const auto& [group, first, last, maximum] : cases) {
        for (const bool download : {false, true}) {
            const TransferPlan plan =
                transferPlan(group + (download ? transfer_code::kDownload : 0), {5, 7, false});
            EXPECT_EQ(std::tuple(group, plan.first, plan.last, plan.progressMaximum),
                      std::tuple(group, first, last, maximum));
            EXPECT_EQ(plan.caption.startsWith("Downloading"), download && maximum);
            EXPECT_EQ(plan.download, download);
        }
    }
}

TEST(BulkTransfer, UploadUnderEveryLineFault)
{
    sweep(kUpload, [](TransferRig& rig, const TransferRig&, bool failed) {
        if (!failed) {
            EXPECT_EQ(rig.entriesInData(TransferRig::inData), 0) << "old values left";
        }
        EXPECT_EQ(bytesAtRest(rig.board), rig.before);
    });
}

TEST(BulkTransfer, DownloadUnderEveryLineFault)
{
    sweep(kDownload, [](TransferRig& rig, const TransferRig& undisturbed, bool failed) {
        const auto now = bytesAtRest(rig.board);
        const auto whole = bytesAtRest(undisturbed.board);
        for (std::size_t a = 0; a < now.size(); ++a)
            EXPECT_TRUE(now[a] == whole[a] || (failed && now[a] == rig.before[a])) << a;
        EXPECT_EQ(rig.entriesInData(TransferRig::inData), kEntries);
    });
}

TEST(BulkTransfer, GoesOnPastWhatCannotBeMovedAndTellsIt)
{
    TransferRig rig;
    auto& data = rig.state.gWorkingData;
    data.Value[kFirst + 1] = -5;
    data.Value[kFirst + 3] = 256;
    data.Address[kFirst + 5].clear();
    data.Address[kFirst + 6] = "B65536";
    EXPECT_FALSE(rig.run(kDownload));
    ASSERT_EQ(rig.person.boxes.size(), 1U) << "the first refused value only";
    EXPECT_EQ(rig.person.boxes[0].title, "ENTRY ALERT");
    EXPECT_EQ(sentences(rig.findings).toStdString(),
              "B3251: wanted -5, found 95; the register cannot hold -5.\r\n"
              "B3253: wanted 256, found 97; the register cannot hold 256.\r\n"
              "Label 5 ON Duration, Ductor 6: skipped, names no register; 199 was kept.\r\n"
              "B65536: skipped, names no register; 200 was kept.");
    EXPECT_EQ(rig.board.peekWord(3274), TransferRig::inData(kLast));
    EXPECT_EQ(rig.board.peek(32), rig.before[32]);
}

TEST(RegisterCheck, TakesOnlyWhatNamesARegisterBeyondDoubt)
{
    for (const char* name :
         {"B0", "w65534", "D65532", "F7", "B100.7", "w2.0", "0H", "1a2bH", "B1h"})
        EXPECT_TRUE(namesRegister(name)) << name;
    for (const char* name :
         {"",    "B",   "X1",     "B-1",   "B 1",  "B1 ", "B123456", "W65535", "D65533", "B1.8",
          "B1.", "B.1", "B1.2.3", "B1.10", "F1.2", "H",   "1G2BH",   "12345H", "12",     "B\xB2"})
        EXPECT_FALSE(namesRegister(name)) << name;
}

TEST(BulkTransfer, AReadIsTriedThreeTimesAndThenKeepsTheValue)
{
    struct Case
    {
        std::vector<std::size_t> exchanges; ///< from 6 on: the third entry, or the second again
        LineFault fault;
        std::size_t kept;
    };
    const LineFault changed{Kind::ChangeReply, 0x40, {}};
    const Case cases[] = {{{6, 9}, changed, 0},
                          {{6, 9, 12}, changed, 2},
                          {{6, 9, 16, 19}, changed, 0},          // two entries, twice each
                          {{6}, {Kind::DoubleReply, 0, {}}, 0}}; // an echo stands for the value
    for (const Case& c : cases) {
        SCOPED_TRACE(c.exchanges.size());
        TransferRig rig;
        for (const std::size_t exchange : c.exchanges)
            rig.line.setFault(exchange, c.fault);
        EXPECT_FALSE(rig.run(kUpload));
        EXPECT_EQ(rig.findings.size(), c.kept);
        for (const EntryFinding& finding : rig.findings)
            EXPECT_EQ(finding.fault, EntryFault::Unread);
        EXPECT_EQ(rig.entriesInData(TransferRig::inData), static_cast<int>(c.kept));
        EXPECT_EQ(rig.soundEntries(), kEntries);
    }
}

TEST(BulkTransfer, WriteWithoutTheRightAnswersIsReadBack)
{
    for (const bool stuck : {false, true}) {
        TransferRig rig; // the data byte, both times; a lost one costs an attention byte besides
        rig.line.setFault(4, {stuck ? Kind::LoseRequest : Kind::ChangeReply, 0x40, {}});
        rig.line.setFault(stuck ? 10 : 9,
                          {stuck ? Kind::LoseRequest : Kind::ChangeReply, 0x40, {}});
        EXPECT_FALSE(rig.run(kDownload));
        ASSERT_EQ(rig.findings.size(), stuck ? 1U : 0U);
        if (stuck) {
            const EntryFinding& finding = rig.findings[0];
            EXPECT_EQ(finding.fault, EntryFault::Unverified);
            EXPECT_EQ(finding.wanted, TransferRig::inData(finding.entry));
            EXPECT_EQ(finding.found, TransferRig::onBoard(finding.entry));
        }
        EXPECT_EQ(rig.board.peekWord(3274), TransferRig::inData(kLast));
    }
}
