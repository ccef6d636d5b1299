#include "tests/support/link_rig.h"

#include <fstream>

using namespace tambrix;

namespace {

struct SettingsCase
{
    const char* name;
    const char* content;
    int port;
    int speed;
    const char* afterwards; ///< the file after the link has read it
};

class CommSettingsCase : public testing::TestWithParam<SettingsCase>
{
};

} // namespace

TEST_P(CommSettingsCase, IsReadTolerantlyAndLeftAlone)
{
    LinkRig rig;
    const auto file = rig.folder.write("Support/RSPort.cfg", GetParam().content);
    rig.open();
    EXPECT_EQ(rig.port.portNumber(), GetParam().port);
    EXPECT_EQ(rig.port.speed(), GetParam().speed);
    EXPECT_EQ(fileContent(file), GetParam().afterwards);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, CommSettingsCase,
    testing::Values(SettingsCase{"usual", "3,19200\r\n", 3, 19200, "3,19200\r\n"},
                    SettingsCase{"odd_speed", "7,4800\r\n", 7, 9600, "7,4800\r\n"},
                    SettingsCase{"port_too_high", "250,9600\r\n", 99, 9600, "250,9600\r\n"},
                    SettingsCase{"port_zero", "0,19200", 1, 19200, "0,19200"},
                    SettingsCase{"quoted", "\"4\",\"19200\"\n", 4, 19200, "\"4\",\"19200\"\n"},
                    SettingsCase{"no_speed", "5", 5, 9600, "5"},
                    SettingsCase{"rubbish", "\xFF\xFE??", 1, 9600, "\xFF\xFE??"},
                    SettingsCase{"empty", "", 1, 9600, "1,9600\r\n"}),
    [](const auto& instance) { return instance.param.name; });

TEST(CommSettings, AreCreatedWithTheirFolder)
{
    LinkRig rig;
    rig.open();
    EXPECT_EQ(fileContent(rig.link.CommSettingsFile()), "1,9600\r\n");
    EXPECT_TRUE(rig.link.OnlineMode);
}

TEST(CommSettings, ThatCannotBeWrittenAreReportedInOneBox)
{
    LinkRig rig;
    rig.folder.write("Support", "a file where the folder should be");
    rig.open();
    ASSERT_EQ(rig.person.boxes.size(), 1u);
    EXPECT_EQ(rig.person.boxes[0].title, "Comm Port Error");
    EXPECT_NE(rig.person.boxes[0].text.find("RSPort.cfg"), std::string::npos);
    EXPECT_FALSE(rig.link.OnlineMode);
    EXPECT_TRUE(rig.link.CommError);
    EXPECT_TRUE(rig.link.portError());
}
