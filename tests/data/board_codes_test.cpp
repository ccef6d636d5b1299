#include "data/board_codes.h"

#include "tests/support/maintenance_rig.h"

using namespace tambrix;

TEST(BoardCodes, EveryCodeHasItsCorrectiveAction)
{
    const std::pair<int, const char*> cases[] = {
        {0, "None"},     {1, "Replace"},       {63, "Replace"}, {64, "Reset"},
        {66, "Verify"},  {69, "User program"}, {91, "Reset"},   {92, "Program"},
        {93, "Program"}, {94, "Reset"},        {122, "Reset"},  {123, "None"}};
    for (const auto& [code, action] : cases)
        EXPECT_TRUE(correctiveAction(code).startsWith(action)) << code;
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
