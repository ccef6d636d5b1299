#include "platform/port_finder.h"
#include "tests/support/virtual_clock.h"

#include <gtest/gtest.h>

#include <tuple>

using namespace tambrix;

TEST(PortFinderTest, KnowsAnAdapterAgainByItsSerialNumber)
{
    VirtualClock clock;
    std::vector<MachinePort> machine = {{"COM3", "", 3, "/x/COM3", "A17"},
                                        {"COM4", "", 4, "/x/COM4", ""},
                                        {"COM5", "", 5, "/x/COM5", "B2"}};
    const auto without = [&machine](const char* name) {
        auto rest = machine;
        std::erase_if(rest, [&](const MachinePort& port) { return port.name == name; });
        return rest;
    };
    auto swapped = without("COM3");
    swapped.push_back({"COM9", "", 9, "/x/COM9", "A17"});
    using Ports = std::vector<MachinePort>; // what is there later; then: found, opened
    const std::tuple<const char*, const char*, Ports, bool, const char*> cases[] = {
        {"under its name", "COM3", machine, true, "COM3"},
        {"gone", "COM3", without("COM3"), false, "COM3"},
        {"renamed", "COM3", swapped, true, "/x/COM9"},
        {"without a number", "COM4", without("COM4"), false, "COM4"},
    };
    for (const auto& [what, device, later, found, opened] : cases) {
        SCOPED_TRACE(what);
        ChosenPort port(clock);
        auto now = machine;
        PortFinder finder(port, [&now] { return now; });
        port.use({Connection::Kind::Device, device, {}, 0});
        port.configure(1, "9600,n,8,1");
        finder.remember();
        now = later;
        EXPECT_EQ(finder.present(), found);
        port.configure(1, "9600,n,8,1");
        EXPECT_EQ(port.deviceName(), opened);
        port.use(port.connection()); // chosen anew: by its own name
        port.configure(1, "9600,n,8,1");
        EXPECT_EQ(port.deviceName(), device);
    }
}
