#include "data/label_find.h"

#include "data/search_expression.h"

#include <gtest/gtest.h>

using namespace tambrix;

TEST(SearchExpression, FindsRegistersAndLabels)
{
    SetupDataRecord record =
        defaultSetupData("TAMBRIX_R1.0.0"); // W690 500, every CYCLE 200, every ON 0
    const auto set = [&record](int label, int entry, int value) {
        record.Value[static_cast<std::size_t>(labelBase(label) + entry)] = value;
    };
    set(12, 2, 25); // ON of ductor 3
    set(13, 2, 25);
    set(13, kDuctors + 7, 90); // CYCLE of ductor 8
    struct Case
    {
        const char* expression;
        std::optional<std::vector<int>> labels;
    };
    const std::vector<int> none;
    const Case cases[] = {{"W690>499", none},
                          {"w690 <= 499", std::nullopt},
                          {"label 12 ON3=25", {{12}}},
                          {"on3=25", {{12, 13}}},
                          {"ON4=25", std::nullopt},
                          {"ON>0 and CYCLE8!=200", {{13}}},
                          {"ON=25 and CYCLE<91 and W690=500", {{13}}},
                          {"ON=25 and W690=501", std::nullopt},
                          {"B5999=0", std::nullopt}}; // no entry of a data set
    for (const Case& c : cases) {
        const auto expression = std::get<SearchExpression>(SearchExpression::parse(c.expression));
        EXPECT_EQ(expression.match(record), c.labels) << c.expression;
    }
    for (const char* wrong :
         {"", "W690", "W690=", "label 12 W690=1", "ON9=1", "Q1=1", "ON=1 or ON=2"})
        EXPECT_TRUE(std::holds_alternative<Refusal>(SearchExpression::parse(wrong))) << wrong;
}

TEST(LabelFind, FindsByNumberNameAndValue)
{
    SetupDataRecord record = defaultSetupData({});
    LabelNames names;
    names.set(6, "Beer gold");
    names.set(20, "Tonic 6");
    record.Value[static_cast<std::size_t>(labelBase(6) + 2)] = 121;
    const std::pair<const char*, std::vector<int>> cases[] = {
        {"6", {6, 20}},   {" BEER ", {6}}, {"ON > 120", {6}},
        {"ON > 121", {}}, {"99", {99}},    {"ON2=0 and ON3=121", {6}},
        {"100", {}}};
    for (const auto& [typed, labels] : cases) {
        LabelSet expected;
        for (const int label : labels)
            expected.set(static_cast<std::size_t>(label));
        EXPECT_EQ(findLabels(typed, record, names), expected) << typed;
    }
    EXPECT_TRUE(findLabels("", record, names).all());
    EXPECT_EQ(findLabels("unused", record, names).count(), 99U);
}

TEST(LabelProblems, NameWhatNoPressRunsWith)
{
    struct Case
    {
        int on;
        int cycle;
        QStringList texts;
    };
    const Case cases[] = {
        {0, 60, {}},
        {200, 260, {}},
        {201, 300, {"ON Duration, Ductor 3: 201 is above Maximum ON Duration 200; 0 when"}},
        {0, 59, {"CYCLE Duration, Ductor 3: 59 is too short for ON 0; 200 when"}},
        {100, 159, {"CYCLE Duration, Ductor 3: 159 is too short for ON 100; 200 when"}},
        {150, 200, {"CYCLE Duration, Ductor 3: 200 is too short for ON 150"}},
        {0, 501, {"CYCLE Duration, Ductor 3: 501 is above Maximum Cycle Duration 500; 200"}},
        {-1, -1, {"ON Duration, Ductor 3: -1, but", "CYCLE Duration, Ductor 3: -1, but"}},
    };
    for (const Case& c : cases) {
        SetupDataRecord record = defaultSetupData({}); // limits 200 and 500
        record.Value[static_cast<std::size_t>(labelBase(6) + 2)] = c.on;
        record.Value[static_cast<std::size_t>(labelBase(6) + 10)] = c.cycle;
        const auto problems = labelProblems(record);
        ASSERT_EQ(problems.size(), static_cast<std::size_t>(c.texts.size())) << c.on << c.cycle;
        for (std::size_t i = 0; i < problems.size(); ++i)
            EXPECT_TRUE(problems[i].text.startsWith("Label 6 " + c.texts[static_cast<int>(i)]))
                << problems[i].text.toStdString();
    }
}
