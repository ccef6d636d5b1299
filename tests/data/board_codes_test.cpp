#include "data/board_codes.h"

#include "tests/support/maintenance_rig.h"

using namespace tambrix;

TEST(BoardCodes, EveryCodeHasItsCorrectiveAction)
{
    struct Case
    {
        int first, last;
        const char* action; ///< how it begins
    };
    const Case cases[] = {{0, 0, "None"},           {1, 63, "Replace CO-CPU board"},
                          {64, 65, "Reset fault"},  {66, 66, "Verify connection"},
                          {67, 68, "Reset fault"},  {69, 69, "User program"},
                          {70, 91, "Reset fault"},  {92, 93, "Program is invalid."},
                          {94, 122, "Reset fault"}, {123, 255, "None"}};
    for (const Case& c : cases) {
        for (int code = c.first; code <= c.last; ++code)
            EXPECT_TRUE(correctiveAction(code).startsWith(c.action)) << code;
    }
}

TEST(BoardCodes, TheLastMatchingRecordWinsInUtf8OrAsWindowsWritesIt)
{
    const MaintenanceRig rig;
    const auto textOf0A = [&](const QByteArray& content) {
        return lastTextOf("0A", rig.write("codes.txt", content));
    };
    EXPECT_EQ(textOf0A("0A,first\r\n1F,other\r\n0a,\"last, at last\"\r\n"), "last, at last");
    EXPECT_EQ(textOf0A("0B,other"), QString());
    EXPECT_EQ(textOf0A("0A,30 \xC2\xB0 \xE2\x82\xAC"), QStringLiteral(u"30 \u00B0 \u20AC"));
    EXPECT_EQ(textOf0A("0A,30 \xB0 \x80 \x9F \x81"),
              QStringLiteral(u"30 \u00B0 \u20AC \u0178 \u0081"));
    EXPECT_EQ(lastTextOf("0A", rig.folder.filePath("no such file")), std::nullopt);
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
