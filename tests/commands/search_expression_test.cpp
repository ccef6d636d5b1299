#include "commands/search_expression.h"

#include "commands/failure.h"

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
    for (const Case& c : cases)
        EXPECT_EQ(SearchExpression(c.expression).match(record), c.labels) << c.expression;
    for (const char* wrong :
         {"", "W690", "W690=", "label 12 W690=1", "ON9=1", "Q1=1", "ON=1 or ON=2"})
        EXPECT_THROW(SearchExpression{wrong}, Failure) << wrong;
}
