#include "maintenance/board_codes.h"

#include "tests/support/maintenance_rig.h"

#include <algorithm>

using namespace tambrix;

TEST(BoardCodes, EveryCodeHasItsCorrectiveAction)
{
    struct Case
    {
        int first, last;
        const char* action;
    };
    const Case cases[] = {
        // the first that a code is in
        {1, 63,
         "Replace CO-CPU board at \"CO-CPU Slot\" and try again.  If fault persists, peplace "
         "R120 processor board and try again.  If fault persists, verify proper use of "
         "\"sfunc05/06/12\" in user program."},
        {66, 66,
         "Verify connection of cable between computer \"COM\" port and target board \"PROG "
         "PORT\".  Verify cable wiring and connectors.  If fault persists, replace target "
         "board and/or try a different computer."},
        {69, 69,
         "User program executed an sfunc09() system fault function call.  See User program "
         "for details on source of fault and corrective action."},
        {92, 93,
         "Program is invalid.  Re-dump program to target board.  If fault persists, verify "
         "cable connections between computer and target board.  If fault persists, replace "
         "target board."},
        {64, 122,
         "Reset fault and try again.  If fault persists, replace target board and try "
         "again.  See Fennix Manual for more details."},
        {0, 255, "None"}};
    for (int code = 0; code <= 255; ++code) {
        const auto* found = std::ranges::find_if(
            cases, [code](const Case& c) { return code >= c.first && code <= c.last; });
        EXPECT_EQ(correctiveAction(code), found->action) << code;
    }
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
