#include "data/bulk_transfer.h"
#include "simulator/sample_program.h"
#include "tests/sweep/scenario.h"

#include <algorithm>

namespace tambrix {

namespace {

Claim readAll(LinkRig& rig, std::initializer_list<const char*> addresses)
{
    Claim claim{true, {}};
    for (const char* addr : addresses) {
        const std::string value = rig.link.RSRead(addr);
        claim.done = claim.done && rig.link.readSucceeded();
        claim.values += (rig.link.readSucceeded() ? value : "-") + " ";
    }
    return claim;
}

Claim writeAll(LinkRig& rig, std::initializer_list<std::pair<const char*, const char*>> entries)
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

constexpr int kLabelUpload = transfer_code::kLabelData;
constexpr int kSetupUpload = transfer_code::kSetupData;
constexpr int kShiftUpload = transfer_code::kShiftData;
constexpr int kDown = transfer_code::kDownload;

} // namespace

const std::vector<Scenario>& scenarios()
{
    static const std::vector<Scenario> table = {
        {"off line and on line", reopen},
        {"reads of every width",
         [](LinkRig& rig) {
             return readAll(rig, {"B692", "W690", "D940", "B694.3", "F119"});
         }},
        {"writes of every width",
         [](LinkRig& rig) {
             return writeAll(rig, {{"B692", "77"}, {"W690", "4660"}, {"D940", "123456789"}});
         }},
        {"bits",
         [](LinkRig& rig) {
             return writeAll(rig, {{"F119", "0"}, {"B61.2", "1"}});
         }},
        {"on-line edit",
         [](LinkRig& rig) {
             Claim claim = writeAll(rig, {{"W690", "1200"}});
             const Claim shown = readAll(rig, {"W690", "B692", "B65"});
             return Claim{claim.done && shown.done, shown.values};
         }},
        {"label load", loadLabel},
        {"label upload", [](LinkRig& rig) { return transfer(rig, kLabelUpload); }},
        {"label download", [](LinkRig& rig) { return transfer(rig, kLabelUpload + kDown); }},
        {"set-up data upload", [](LinkRig& rig) { return transfer(rig, kSetupUpload); }},
        {"set-up data download", [](LinkRig& rig) { return transfer(rig, kSetupUpload + kDown); }},
        {"shift data upload", [](LinkRig& rig) { return transfer(rig, kShiftUpload); }},
        {"target board pages",
         [](LinkRig& rig) {
             return readAll(rig, {"B8159", "B61424", "B61425", "B61432", "B61433", "B8176", "B8177",
                                  "B8178", "B8180"});
         }},
        {"network address",
         [](LinkRig& rig) {
             return writeAll(rig, {{"B8180", "9"}, {"B8191", "9"}});
         }},
        {"program download", loadProgram},
        {"limit switch: scale",
         [](LinkRig& rig) { return switchValue(rig.link.PLSScaleFactor()); }},
        {"limit switch: offset", [](LinkRig& rig) { return switchValue(rig.link.PLSOffset()); }},
        {"limit switch: setpoint",
         [](LinkRig& rig) {
             return Claim{rig.link.SingleSetpoint(4, 10, 300, true), {}};
         }},
        {"limit switch: train",
         [](LinkRig& rig) {
             return Claim{rig.link.PulseTrain(4, 10, 20, 0), {}};
         }},
        {"limit switch: clear",
         [](LinkRig& rig) {
             return Claim{rig.link.ClearPLSChan(4), {}};
         }},
        {"limit switch: recall", recall},
        {"limit switch: set offset",
         [](LinkRig& rig) {
             return Claim{rig.link.SetPLSOffset(50), {}};
         }},
        {"limit switch: download",
         [](LinkRig& rig) {
             return Claim{rig.link.PLSConfigDownload(countingConfig(), 720), {}};
         }},
        {"limit switch: upload", uploadSwitch},
    };
    return table;
}

} // namespace tambrix
