#include "shell/bulk_transfer.h"

#include "tests/support/board_bytes.h"
#include "tests/support/press_rig.h"

#include <gtest/gtest.h>

#include <array>

using namespace tambrix;
using namespace std::chrono_literals;

namespace {

using Kind = LineFault::Kind;

constexpr LabelRange kLabel5{5, 5, false};
constexpr int kFirst = 94;
constexpr int kLast = 109;
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

    /// Runs a transfer to its end and returns whether it failed.
    bool run(int code)
    {
        BulkTransfer transfer(state, transferPlan(code, kLabel5));
        for (int steps = 0; !transfer.ended(); ++steps) {
            EXPECT_LT(steps, 200);
            transfer.step();
        }
        return transfer.failed();
    }

    /// Board addresses whose byte is neither what it was nor what the transfer brings.
    int foreignBytes() const
    {
        std::vector<std::uint8_t> after = before;
        for (int entry = kFirst; entry <= kLast; ++entry) {
            const int d = (entry - kFirst) % kDuctors;
            const int address = isByte(entry) ? 3250 + d : 3260 + 2 * d;
            after[slot(address)] = static_cast<std::uint8_t>(inData(entry));
            if (!isByte(entry))
                after[slot(address + 1)] = static_cast<std::uint8_t>(inData(entry));
        }
        const std::vector<std::uint8_t> now = bytesAtRest(board);
        int foreign = 0;
        for (std::size_t a = 0; a < after.size(); ++a)
            foreign += now[a] != before[a] && now[a] != after[a];
        return foreign;
    }

    int entriesOnBoard(const std::function<int(int)>& expected)
    {
        int count = 0;
        for (int entry = kFirst; entry <= kLast; ++entry) {
            const auto a = static_cast<std::uint16_t>(isByte(entry) ? 3250 + entry - kFirst
                                                                    : 3244 + 2 * (entry - kFirst));
            count += (isByte(entry) ? board.peek(a) : board.peekWord(a)) == expected(entry);
        }
        return count;
    }

    int entriesInData(const std::function<int(int)>& expected) const
    {
        int count = 0;
        for (int entry = kFirst; entry <= kLast; ++entry)
            count += state.gWorkingData.Value[slot(entry)] == expected(entry);
        return count;
    }

    std::vector<std::uint8_t> before;
};

constexpr int kEntries = kLast - kFirst + 1;

struct Fault
{
    const char* name;
    LineFault fault;
};

constexpr std::array kFaults = {
    Fault{"request lost", {Kind::LoseRequest, 0, {}}},
    Fault{"reply lost", {Kind::LoseReply, 0, {}}},
    Fault{"reply changed", {Kind::ChangeReply, 0x01, {}}},
    Fault{"reply late", {Kind::DelayReply, 0, 1500ms}},
    Fault{"reply doubled", {Kind::DoubleReply, 0, {}}},
    Fault{"port gone", {Kind::Unplug, 0, {}}},
};

std::size_t exchangesOf(int code)
{
    TransferRig rig;
    EXPECT_FALSE(rig.run(code));
    return rig.line.exchanges();
}

/// Every fault at every exchange of one label's transfer.
void sweep(int code, const std::function<void(TransferRig&, const Fault&, bool failed)>& check)
{
    const std::size_t exchanges = exchangesOf(code);
    ASSERT_GT(exchanges, 40U);
    for (const Fault& fault : kFaults) {
        for (std::size_t k = 0; k < exchanges; ++k) {
            SCOPED_TRACE(std::string(fault.name) + " at exchange " + std::to_string(k));
            TransferRig rig;
            rig.line.setFault(k, fault.fault);
            const bool failed = rig.run(code);
            EXPECT_EQ(failed, fault.fault.kind == Kind::Unplug) << "whether the user is told";
            EXPECT_EQ(rig.person.boxes.size(), failed ? 1U : 0U);
            check(rig, fault, failed);
            if (testing::Test::HasFailure())
                return;
        }
    }
}

} // namespace

TEST(TransferPlan, KnowsItsGroups)
{
    struct Case
    {
        int code;
        const char* caption;
        int first;
        int last;
        std::optional<int> maximum;
        bool download;
    };
    const LabelRange labels{5, 7, false};
    const Case cases[] = {
        {0, "Uploading Set-up Data, Please Standby", 8, 12, 6, false},
        {1, "Uploading Shift Data, Please Standby", 0, 7, 9, false},
        {2, "Uploading Label Data, Please Standby", 94, 141, 49, false},
        {4, "Uploading, Please Standby", 0, 1613, 1614, false},
        {10, "Downloading Set-Up Data, Please Standby", 8, 12, 6, true},
        {11, "Downloading Shift Data, Please Standby", 0, 7, 9, true},
        {12, "Downloading Label Data, Please Standby", 94, 141, 49, true},
        {14, "Downloading, Please Standby", 0, 1613, 1614, true},
        {3, "Please Standby", 0, 0, std::nullopt, false},
        {13, "Please Standby", 0, 0, std::nullopt, true},
    };
    for (const Case& c : cases) {
        const TransferPlan plan = transferPlan(c.code, labels);
        EXPECT_EQ(plan.caption.toStdString(), c.caption);
        EXPECT_EQ(plan.first, c.first) << c.code;
        EXPECT_EQ(plan.last, c.last) << c.code;
        EXPECT_EQ(plan.progressMaximum, c.maximum) << c.code;
        EXPECT_EQ(plan.download, c.download) << c.code;
    }
}

TEST(BulkTransfer, UploadUnderEveryLineFault)
{
    sweep(kUpload, [](TransferRig& rig, const Fault& fault, bool failed) {
        const int fresh = rig.entriesInData(TransferRig::onBoard);
        const int old = rig.entriesInData(TransferRig::inData);
        // The line has no checksum: one data byte changed or doubled on its way looks like any
        // other. All else is noticed.
        const bool credible =
            fault.fault.kind == Kind::ChangeReply || fault.fault.kind == Kind::DoubleReply;
        EXPECT_GE(fresh + old, credible ? kEntries - 1 : kEntries);
        if (!failed) {
            EXPECT_EQ(old, 0);
        }
        EXPECT_EQ(bytesAtRest(rig.board), rig.before);
    });
}

TEST(BulkTransfer, DownloadUnderEveryLineFault)
{
    sweep(kDownload, [](TransferRig& rig, const Fault&, bool failed) {
        EXPECT_EQ(rig.foreignBytes(), 0);
        if (!failed) {
            EXPECT_EQ(rig.entriesOnBoard(TransferRig::inData), kEntries);
        }
        EXPECT_EQ(rig.entriesInData(TransferRig::inData), kEntries);
    });
}

TEST(BulkTransfer, ReadThatNeverSucceedsLeavesTheOldValue)
{
    TransferRig rig;
    for (const std::size_t exchange : {2U, 5U, 8U}) // attention, mode, address high; three times
        rig.line.setFault(exchange, {Kind::ChangeReply, 0x40, {}});
    EXPECT_TRUE(rig.run(kUpload));
    EXPECT_FALSE(rig.state.gLink.CommError);
    EXPECT_EQ(rig.entriesInData(TransferRig::inData), kEntries);
}

TEST(BulkTransfer, WriteThatCannotBeVerifiedEndsTheDownload)
{
    TransferRig rig;
    for (const std::size_t exchange : {4U, 9U}) // the echo of the data byte, both times
        rig.line.setFault(exchange, {Kind::ChangeReply, 0x40, {}});
    EXPECT_TRUE(rig.run(kDownload));
    EXPECT_EQ(rig.line.exchanges(), 10U);
    EXPECT_FALSE(rig.state.gLink.CommError);
}

TEST(BulkTransfer, ValueThatDoesNotFitIsRefusedOnce)
{
    TransferRig rig;
    rig.state.gWorkingData.Value[kFirst + 1] = -5;
    EXPECT_TRUE(rig.run(kDownload));
    ASSERT_EQ(rig.person.boxes.size(), 1U);
    EXPECT_EQ(rig.person.boxes[0].title, "ENTRY ALERT");
    EXPECT_EQ(rig.entriesOnBoard(TransferRig::inData), 1);
}

TEST(BulkTransfer, EntryWithoutAddressIsLeftOut)
{
    TransferRig rig;
    rig.state.gWorkingData.Address[kFirst + 1].clear();
    EXPECT_FALSE(rig.run(kDownload));
    EXPECT_EQ(rig.entriesOnBoard(TransferRig::inData), kEntries - 1);
    EXPECT_EQ(rig.board.peek(32), rig.before[32]);
}
