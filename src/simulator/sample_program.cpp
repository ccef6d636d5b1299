#include "simulator/sample_program.h"

#include <algorithm>
#include <fstream>
#include <numeric>
#include <span>

namespace tambrix {

namespace {

constexpr std::size_t kConfigurationColumns = 40;
constexpr const char* kEndRecord = ":00000001??\r\n";

/// Two digits; 10 to 15 are the characters that follow '9'.
std::string digits(int byte)
{
    return {static_cast<char>('0' + (byte >> 4 & 0xF)), static_cast<char>('0' + (byte & 0xF))};
}

int sumOf(std::span<const std::uint8_t> bytes)
{
    return std::accumulate(bytes.begin(), bytes.end(), 0);
}

std::string recordText(std::size_t address, std::span<const std::uint8_t> data)
{
    const auto high = static_cast<int>(address >> 8 & 0xFF);
    const auto low = static_cast<int>(address & 0xFF);
    const auto length = static_cast<int>(data.size());
    std::string text = ":" + digits(length) + digits(high) + digits(low) + "00";
    for (const std::uint8_t byte : data)
        text += digits(byte);
    return text + digits(-(length + high + low + sumOf(data))) + "\r\n";
}

std::string configurationText(const SampleProgram& program)
{
    std::string line(kConfigurationColumns, ' ');
    line[35] = static_cast<char>('0' + program.settingA);
    line[38] = static_cast<char>('0' + program.settingB);
    line[39] = static_cast<char>('0' + program.settingC);
    return line + "\r\n";
}

void write(const std::filesystem::path& file, const std::string& text)
{
    std::ofstream stream;
    stream.exceptions(std::ios::failbit | std::ios::badbit);
    stream.open(file, std::ios::binary);
    stream << text;
    stream.close();
}

} // namespace

std::vector<std::uint8_t> SampleProgram::bytes() const
{
    std::vector<std::uint8_t> result(size);
    for (std::size_t i = 0; i < size; ++i)
        result[i] = static_cast<std::uint8_t>(i ^ (i >> 8) * 37);
    return result;
}

std::uint8_t SampleProgram::checksum() const
{
    return static_cast<std::uint8_t>(sumOf(bytes()));
}

std::string SampleProgram::imageText() const
{
    const std::vector<std::uint8_t> all = bytes();
    std::string text;
    for (std::size_t at = 0; at < all.size(); at += perRecord) {
        const std::size_t length = std::min(perRecord, all.size() - at);
        text += recordText(address + at, std::span(all).subspan(at, length));
    }
    return text + kEndRecord;
}

std::filesystem::path writeSampleProgram(const SampleProgram& program,
                                         const std::filesystem::path& folder,
                                         const std::string& baseName)
{
    const auto file = [&](const char* extension) { return folder / (baseName + extension); };
    write(file(".fnx"), program.boardType + std::string(",") + baseName + "\r\n");
    write(file(".rev"),
          program.name + digits(program.checksum()) + digits(program.revision) + "\r\n");
    write(file(".lcf"), configurationText(program));
    write(file(".hex"), program.imageText());
    return file(".fnx");
}

} // namespace tambrix
