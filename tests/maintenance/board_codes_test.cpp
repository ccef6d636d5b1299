#include "maintenance/board_codes.h"

#include "tests/support/maintenance_rig.h"

using namespace tambrix;

namespace {

constexpr const char* kCoCpu = "Replace CO-CPU board";
constexpr const char* kCable = "Verify connection of cable";
constexpr const char* kUser = "User program executed an sfunc09()";
constexpr const char* kProgram = "Program is invalid.";
constexpr const char* kReset = "Reset fault and try again.";

/// Which of the six texts a code has, from a list of its own.
const char* groupOf(int code)
{
    if (code == 0 || code > 122)
        return "None";
    if (code < 64)
        return kCoCpu;
    switch (code) {
    case 66:
        return kCable;
    case 69:
        return kUser;
    case 92:
    case 93:
        return kProgram;
    default:
        return kReset;
    }
}

} // namespace

TEST(BoardCodes, EveryCodeHasItsCorrectiveAction)
{
    for (int code = 0; code <= 255; ++code)
        EXPECT_TRUE(correctiveAction(code).startsWith(QLatin1String(groupOf(code)))) << code;
}

TEST(BoardCodes, TheActionsAreLetterForLetter)
{
    EXPECT_EQ(correctiveAction(0x1F),
              "Replace CO-CPU board at \"CO-CPU Slot\" and try again.  If fault persists, peplace "
              "R120 processor board and try again.  If fault persists, verify proper use of "
              "\"sfunc05/06/12\" in user program.");
    EXPECT_EQ(correctiveAction(0x42),
              "Verify connection of cable between computer \"COM\" port and target board \"PROG "
              "PORT\".  Verify cable wiring and connectors.  If fault persists, replace target "
              "board and/or try a different computer.");
    EXPECT_EQ(correctiveAction(0x45),
              "User program executed an sfunc09() system fault function call.  See User program "
              "for details on source of fault and corrective action.");
    EXPECT_EQ(correctiveAction(0x5C),
              "Program is invalid.  Re-dump program to target board.  If fault persists, verify "
              "cable connections between computer and target board.  If fault persists, replace "
              "target board.");
    EXPECT_EQ(correctiveAction(0x40),
              "Reset fault and try again.  If fault persists, replace target board and try "
              "again.  See Fennix Manual for more details.");
    EXPECT_EQ(correctiveAction(0x7B), "None");
}

TEST(BoardCodes, TheLastMatchingRecordWins)
{
    const MaintenanceRig rig;
    const QString file = rig.write("codes.txt", "0A,first\r\n1F,other\r\n0a,\"last, at last\"\r\n");
    EXPECT_EQ(lastTextOf("0A", file), QString("last, at last"));
    EXPECT_EQ(lastTextOf("0B", file), QString());
    EXPECT_EQ(lastTextOf("0A", file + "x"), std::nullopt);
}

TEST(BoardCodes, TheShippedTextsFollowTheCorrectiveActions)
{
    const QString folder = QStringLiteral(TAMBRIX_SUPPORT_FOLDER);
    const QString faults = folder + "/FaultErrCodes.txt";
    for (int code = 0; code <= 122; ++code)
        EXPECT_FALSE(lastTextOf(codeText(code), faults).value_or(QString()).isEmpty()) << code;
    EXPECT_EQ(lastTextOf(codeText(123), faults), QString());
    for (const auto* file : {"/FaultErrCodes.txt", "/CommErrCodes.txt"})
        EXPECT_TRUE(lastTextOf(kBrokenLinkCode, folder + file)->contains("No communication"));
}
