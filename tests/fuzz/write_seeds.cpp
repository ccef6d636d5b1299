// Writes set-up files into the folder that is named: what the fuzzer starts from.
#include "data/setup_file.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

using namespace tambrix;

namespace {

void write(const std::filesystem::path& file, const SetupDataRecord& record)
{
    std::ofstream(file, std::ios::binary) << setupFileBytes(record);
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 2) {
        std::fputs("write_seeds FOLDER\n", stderr);
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    std::filesystem::create_directories(folder);
    SetupDataRecord record = defaultSetupData("TAMBRIX_R1.0.0");
    write(folder / "default.sdt", record);
    record.Address.resize(20);
    record.Value.resize(30, -1);
    write(folder / "uneven.sdt", record);
    write(folder / "small.sdt", {"V", {"B1", "", "W2"}, {1, -1}});
    write(folder / "empty.sdt", {});
    return 0;
}
