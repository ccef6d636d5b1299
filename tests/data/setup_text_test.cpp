#include "data/setup_text.h"

#include <gtest/gtest.h>

#include <limits>

using namespace tambrix;

namespace {

NamedSetup hostile()
{
    SetupDataRecord record = defaultSetupData("=1+1,\"x\"\n");
    record.Value[20] = std::numeric_limits<std::int32_t>::min();
    record.Value[21] = 2147483647;
    record.Address[30].clear();
    record.Address[31] = "=cmd|' /C'!A0";
    record.Address[32] = "a,\"b\"\t\r\nc";
    LabelNames names;
    names.set(0, "=1+1");
    names.set(99, "a,\"b\"\t\r\nc 'd");
    return {record, names};
}

QString faultOf(const std::variant<NamedSetup, TextFault>& result)
{
    const auto* fault = std::get_if<TextFault>(&result);
    return fault != nullptr ? fault->sentence() : QString();
}

} // namespace

TEST(SetupText, ReadsBackWhatItWrote)
{
    const NamedSetup setup = hostile();
    EXPECT_EQ(std::get<NamedSetup>(readSetupCsv(setupCsv(setup))), setup);
    EXPECT_FALSE(setupCsv(setup).contains(",=") || setupCsv(setup).contains(",\"="))
        << "a spreadsheet would reckon";
    EXPECT_EQ(std::get<NamedSetup>(readSetupJson(setupJson(setup))), setup);
    const NamedSetup plain{defaultSetupData("V"), {}};
    QByteArray text = setupCsv(plain);
    EXPECT_TRUE(text.startsWith("TAMBRIX data set,1,V\r\nEntry,Name,Register,Unit,Value,"));
    text.replace("set,1,V\r\n", "set,1,V,,,\r\n")
        .replace("500,\r\n", "500\r\n"); // by a spreadsheet
    EXPECT_EQ(std::get<NamedSetup>(readSetupCsv(text)), plain);
}

TEST(SetupText, RefusesWithLineAndColumn)
{
    struct Case
    {
        bool json;
        const char* from;
        const char* to;
        const char* fault;
    };
    const char* const field = "W690,0.1 cans,500,\r\n";
    const char* const entry = "\"0.1 cans\", \"value\": 500";
    const char* const noNumber = "Line 11, column 40: no plain whole number.";
    const Case cases[] = {
        {false, field, "W690,0.1 cans,\"1,500\",\r\n", noNumber},
        {false, field, "W690,0.1 cans,50.0,\r\n", noNumber},
        {false, field, "W690,0.1 cans,1,500,\r\n", "Line 11, column 46: 7 fields, not 6."},
        {false, field, "W690,0.1 cans,500,Cola\r\n", "Line 11, column 44: a label's name"},
        {false, "8,Max", "7,Max", "Line 11, column 1: entry 8 is expected here."},
        {false, "8,Max", "8,\"Max", "Line 17, column 5: a quote in the middle of a field."},
        {false, "data set,1", "data set,2", "Line 1, column 18: a format that"},
        {true, entry, "\"0.1 cans\", \"value\": 1,500", "Line 14, column "},
        {true, entry, "\"0.1 cans\", \"value\": 50.5", "Line 14, column 1: entry 8: no plain"},
        {true, "\"labelNames\": [", "\"labelNames\": [{\"label\": 100}", "name 1: no label"},
        {true, "{\"entry\": 8,", "{\"entry\": 9,", "entry 8: missing, or not in its place."},
    };
    const NamedSetup setup{defaultSetupData("V"), {}};
    for (const Case& c : cases) {
        QByteArray text = c.json ? setupJson(setup) : setupCsv(setup);
        text.replace(c.from, c.to);
        const QString fault = faultOf(c.json ? readSetupJson(text) : readSetupCsv(text));
        EXPECT_TRUE(fault.contains(c.fault)) << c.to << ": " << fault.toStdString();
    }
    EXPECT_EQ(faultOf(readSetupCsv(setupCsv(setup).chopped(40))).contains("Line 1616"), true);
    EXPECT_FALSE(faultOf(readSetupCsv(QByteArray(1'000'000, '\n'))).isEmpty());
    EXPECT_FALSE(faultOf(readSetupCsv(QByteArray(5'000'000, 'x'))).isEmpty());
    EXPECT_FALSE(faultOf(readSetupJson("[]")).isEmpty());
}
