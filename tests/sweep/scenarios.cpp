#include "data/bulk_transfer.h"
#include "simulator/sample_program.h"
#include "tests/sweep/scenario.h"

#include <algorithm>

namespace tambrix {

namespace {

Claim readAll(LinkRig& rig, const std::vector<const char*>& addresses)
{
    Claim claim{true, {}};
    for (const char* addr : addresses) {
        const std::string value = rig.link.RSRead(addr);
        claim.done = claim.done && rig.link.readSucceeded();
        claim.values += (rig.link.readSucceeded() ? value : "-") + " ";
    }
    return claim;
}

Claim writeAll(LinkRig& rig, const std::vector<std::pair<const char*, const char*>>& entries)
{
    Claim claim{true, {}};
    for (const auto& [addr, value] : entries) {
        rig.link.RSWrite(addr, value);
        claim.done = claim.done && rig.link.writeSucceeded();
    }
    return claim;
}

/// The working durations of two ductors are loaded from a label: what was not read is not written.
Claim loadLabel(LinkRig& rig)
{
    Claim claim{true, {}};
    for (const auto& [from, to] : {std::pair("B3250", "B720"), std::pair("B3251", "B721"),
                                   std::pair("W3260", "W730"), std::pair("W3262", "W732")}) {
        const std::string value = rig.link.RSRead(from);
        const bool read = rig.link.readSucceeded();
        if (read)
            rig.link.RSWrite(to, value);
        claim.done = claim.done && read && rig.link.writeSucceeded();
    }
    return claim;
}

Claim transfer(LinkRig& rig, int code)
{
    SetupDataRecord data = defaultSetupData("1.0.0");
    BulkTransfer moves(rig.link, data, transferPlan(code, {5, 5, false}));
    for (int steps = 0; !moves.ended() && steps < 10'000; ++steps)
        moves.step();
    Claim claim{moves.ended() && !moves.linkBroken() && moves.findings().empty(), {}};
    for (int entry = moves.plan().first; entry <= moves.plan().last; ++entry)
        claim.values += std::to_string(data.Value[static_cast<std::size_t>(entry)]) + " ";
    return claim;
}

Claim loadProgram(LinkRig& rig)
{
    SampleProgram program;
    program.size = 40;
    rig.link.DownloadFile(writeSampleProgram(program, rig.folder.path(), "ink"));
    rig.person.answers = {BoxAnswer::Yes};
    rig.link.DumpProgram();
    return {!rig.person.boxes.empty() &&
                rig.person.boxes.back().text == "Program Download Complete!",
            {}};
}

Claim switchValue(const std::string& text)
{
    return {text != "-9999", text};
}

Claim uploadSwitch(LinkRig& rig)
{
    rig.board.limitSwitch().configuration.fill(7);
    const std::size_t boxes = rig.person.boxes.size();
    Claim claim;
    for (const auto entry : rig.link.PLSConfigUpload())
        claim.values += std::to_string(entry) + " ";
    claim.done = rig.person.boxes.size() == boxes;
    if (!claim.done)
        claim.values.clear();
    return claim;
}

Claim recall(LinkRig& rig)
{
    rig.board.limitSwitch().channels[4] = {false, true, 258, 300};
    const bool done = rig.link.RecallChannel(4);
    return {done, done ? std::to_string(rig.link.ChannelRecallPos()) : ""};
}

PLSConfig countingConfig()
{
    PLSConfig config{};
    std::int16_t entry = 100;
    std::ranges::generate(config, [&entry] { return entry++; });
    return config;
}

Claim reopen(LinkRig& rig)
{
    rig.link.CloseRSComm();
    rig.open();
    return {rig.link.OnlineMode, {}};
}

using Run = std::function<Claim(LinkRig&)>;

Run reads(const std::vector<const char*>& addresses)
{
    return [=](LinkRig& rig) { return readAll(rig, addresses); };
}

Run writes(const std::vector<std::pair<const char*, const char*>>& entries)
{
    return [=](LinkRig& rig) { return writeAll(rig, entries); };
}

Run moves(int code)
{
    return [=](LinkRig& rig) { return transfer(rig, code); };
}

/// A call that says whether it has done all.
Run does(const std::function<bool(RSComm&)>& call)
{
    return [=](LinkRig& rig) { return Claim{call(rig.link), {}}; };
}

} // namespace

const std::vector<Scenario>& scenarios()
{
    using namespace transfer_code;
    static const std::vector<Scenario> table = {
        {"off line and on line", reopen},
        {"reads of every width", reads({"B692", "W690", "D940", "B694.3", "F119"})},
        {"writes of every width",
         writes({{"B692", "77"}, {"W690", "4660"}, {"D940", "123456789"}})},
        {"bits", writes({{"F119", "0"}, {"B61.2", "1"}})},
        {"on-line edit",
         [](LinkRig& rig) {
             Claim claim = writeAll(rig, {{"W690", "1200"}});
             const Claim shown = readAll(rig, {"W690", "B692", "B65"});
             return Claim{claim.done && shown.done, shown.values};
         }},
        {"label load", loadLabel},
        {"label upload", moves(kLabelData)},
        {"label download", moves(kLabelData + kDownload)},
        {"set-up data upload", moves(kSetupData)},
        {"set-up data download", moves(kSetupData + kDownload)},
        {"shift data upload", moves(kShiftData)},
        {"target board pages", reads({"B8159", "B61424", "B61425", "B61432", "B61433", "B8176",
                                      "B8177", "B8178", "B8180"})},
        {"network address", writes({{"B8180", "9"}, {"B8191", "9"}})},
        {"program download", loadProgram},
        {"limit switch: scale",
         [](LinkRig& rig) { return switchValue(rig.link.PLSScaleFactor()); }},
        {"limit switch: offset", [](LinkRig& rig) { return switchValue(rig.link.PLSOffset()); }},
        {"limit switch: setpoint",
         does([](RSComm& link) { return link.SingleSetpoint(4, 10, 300, true); })},
        {"limit switch: train", does([](RSComm& link) { return link.PulseTrain(4, 10, 20, 0); })},
        {"limit switch: clear", does([](RSComm& link) { return link.ClearPLSChan(4); })},
        {"limit switch: recall", recall},
        {"limit switch: set offset", does([](RSComm& link) { return link.SetPLSOffset(50); })},
        {"limit switch: download",
         does([](RSComm& link) { return link.PLSConfigDownload(countingConfig(), 720); })},
        {"limit switch: upload", uploadSwitch},
    };
    return table;
}

} // namespace tambrix
