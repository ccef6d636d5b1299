#include "data/setup_file.h"

#include <gtest/gtest.h>

#include <tuple>

namespace tambrix {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

constexpr auto kVersion = "\x0E\0TAMBRIX_R1.0.0"sv;
constexpr auto kListHeadOf2 = "\x01\0\x02\0\0\0\0\0\0\0"sv;

// A whole file, byte for byte as it must lie on disk.
const std::string kGolden = "\x0E\0TAMBRIX_R1.0.0"
                            "\x01\0" // one dimension
                            "\x05\0\0\0"
                            "\0\0\0\0"
                            "\x04\0D940"
                            "\x05\0B1013"
                            "\0\0"
                            "\x03\0\xB0.7"
                            "\x05\0W6094"
                            "\x01\0"
                            "\x05\0\0\0"
                            "\0\0\0\0"
                            "\x00\x00\x00\x00"
                            "\xFF\xFF\xFF\xFF"
                            "\x15\xCD\x5B\x07"
                            "\xFF\xFF\xFF\x7F"
                            "\x00\x00\x00\x80"s;

SetupDataRecord goldenRecord()
{
    return {"TAMBRIX_R1.0.0",
            {"D940", "B1013", "", "\xB0.7", "W6094"},
            {0, -1, 123456789, 2147483647, -2147483647 - 1}};
}

SetupFileFault faultOf(std::string_view bytes)
{
    const auto read = readSetupFile(bytes);
    const auto* fault = std::get_if<SetupFileFault>(&read);
    EXPECT_NE(fault, nullptr) << "accepted";
    return fault == nullptr ? SetupFileFault{-1} : *fault;
}

TEST(SetupFile, HasTheBytesThatOtherPressesRead)
{
    EXPECT_EQ(setupFileBytes(goldenRecord()), kGolden);
    EXPECT_EQ(std::get<SetupDataRecord>(readSetupFile(kGolden)), goldenRecord());
}

TEST(SetupFile, TellsWhatIsWrong)
{
    const std::string version(kVersion);
    const std::string addresses = version + std::string(kListHeadOf2) + "\x01\0A\x01\0B"s;
    const std::tuple<const char*, std::string, SetupFileFault> cases[] = {
        {"version longer than the file", "\xFF\xFFTAMBRIX", SetupFileFault::Truncated},
        {"table", version + "\x02\0\x02\0\0\0\0\0\0\0"s, SetupFileFault::NotOneDimension},
        {"list from -1", version + "\x01\0\x02\0\0\0\xFF\xFF\xFF\xFF\0\0\0\0"s,
         SetupFileFault::NotFromZero},
        {"four thousand million addresses", version + "\x01\0\xFF\xFF\xFF\xFF\0\0\0\0\0\0"s,
         SetupFileFault::Truncated},
        {"values as a table", addresses + "\x03\0"s + std::string(32, '\0'),
         SetupFileFault::NotOneDimension},
        {"more values than bytes", addresses + "\x01\0\x03\0\0\0\0\0\0\0"s + std::string(11, '\0'),
         SetupFileFault::Truncated},
        {"a thousand million values", addresses + "\x01\0\0\0\0\x40\0\0\0\0\0\0\0\0"s,
         SetupFileFault::Truncated},
    };
    for (const auto& [what, bytes, fault] : cases)
        EXPECT_EQ(faultOf(bytes), fault) << what;
}

TEST(SetupFile, HalfWrittenFileIsNeverTakenForAWholeOne)
{
    for (std::size_t size = 0; size < kGolden.size(); ++size)
        EXPECT_EQ(faultOf(std::string_view(kGolden).substr(0, size)), SetupFileFault::Truncated)
            << size;
}

TEST(SetupFile, ArraysMayDifferInLengthAndBytesMayFollow)
{
    const SetupDataRecord uneven{"V", {"B1", "B2", "B3"}, {7}};
    EXPECT_EQ(std::get<SetupDataRecord>(readSetupFile(setupFileBytes(uneven) + "more")), uneven);
    const SetupDataRecord empty{"", {}, {}};
    EXPECT_EQ(std::get<SetupDataRecord>(readSetupFile(setupFileBytes(empty))), empty);
}

} // namespace
} // namespace tambrix
