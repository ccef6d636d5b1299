#pragma once

#include "link/rs_comm.h"
#include "simulator/inprocess/simulated_serial_port.h"
#include "tests/support/scripted_operator.h"
#include "tests/support/virtual_clock.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace tambrix {

/// A folder of its own for every test that needs files; removed afterwards.
class ScratchFolder
{
public:
    ScratchFolder() : ScratchFolder(runningTest()) {}
    explicit ScratchFolder(std::string name)
    {
        for (char& c : name)
            c = c == '/' ? '_' : c;
        name += "." + std::to_string(std::random_device{}()); // apart from another run's
        m_path = std::filesystem::temp_directory_path() / "tambrix-tests" / name;
        std::filesystem::create_directories(m_path);
    }
    ~ScratchFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::filesystem::path& path() const { return m_path; }

    /// Writes a file, with its folders, and returns its path.
    std::filesystem::path write(const std::string& name, const std::string& content) const
    {
        const auto file = m_path / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << content;
        return file;
    }

private:
    static std::string runningTest()
    {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        return test == nullptr ? "program"
                               : std::string(test->test_suite_name()) + "." + test->name();
    }

    std::filesystem::path m_path;
};

inline std::string fileContent(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// The link with a simulated board at the far end of its line, on a virtual clock.
struct LinkRig
{
    ScratchFolder folder;
    VirtualClock clock;
    SimulatedBoard board;
    SimulatedLine line{board};
    SimulatedSerialPort port{line, clock};
    ScriptedOperator person;
    RSComm link{folder.path(), clock, person};
    /// PC bytes as "05", the board's as "<05", and "+600" for a pause of more than 10 ms between
    /// two PC bytes; blanks between.
    std::string trace;

    LinkRig()
    {
        line.setTap([this](const WireByte& wire) { note(wire); });
    }

    void open() { link.OpenRSComm(port); }

    /// Opens the link and forgets the bytes that this took.
    void openQuietly()
    {
        open();
        trace.clear();
        line.clearFaults();
    }

private:
    void note(const WireByte& wire)
    {
        constexpr auto kShown = std::chrono::milliseconds(10);
        const bool toPc = wire.direction == WireByte::Direction::ToPc;
        const auto gap = std::chrono::duration_cast<std::chrono::milliseconds>(wire.time - m_last);
        if (!toPc && !trace.empty() && gap > kShown)
            trace += " +" + std::to_string(gap.count());
        if (!toPc)
            m_last = wire.time;
        char text[8];
        std::snprintf(text, sizeof text, "%s%02X", toPc ? "<" : "", wire.byte);
        trace += trace.empty() ? text : std::string(" ") + text;
    }

    SimTime m_last{}; ///< when the PC's last byte started
};

} // namespace tambrix
