#include "commands/command.h"
#include "commands/failure.h"
#include "data/bulk_transfer.h"
#include "data/comparison.h"
#include "data/setup_file.h"
#include "data/version.h"
#include "link/register_value.h"
#include "shell/reconnect.h"
#include "simulator/sample_program.h"
#include "tests/support/scripted_prompts.h"
#include "tests/sweep/scenario.h"

#include <QDir>

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
    return {rig.link.programLoaded(), {}};
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

/// Writes `rows` as the window does, and says what it found.
Claim restore(LinkRig& rig, std::vector<RestoreRow> rows)
{
    Restore writing(rig.link, std::move(rows));
    for (int steps = 0; !writing.ended() && steps < 10'000; ++steps)
        writing.step();
    Claim claim{writing.ended() && !rig.link.CommError, {}};
    for (const RestoreRow& row : writing.rows()) {
        if (row.state == WriteState::Verified)
            claim.verified.emplace_back(row.address, row.value);
        else
            claim.done = false;
    }
    return claim;
}

Claim restoreFew(LinkRig& rig)
{
    return restore(rig, {{"W690", 510, WriteState::NotWritten, 0},
                         {"B692", 180, WriteState::NotWritten, 0},
                         {"B694", 3, WriteState::NotWritten, 0},
                         {"B3250", 44, WriteState::NotWritten, 0},
                         {"W3260", 0x0203, WriteState::NotWritten, 0}});
}

/// What a press should hold, against what the board holds: a few values differ.
SetupDataRecord wantedData(const LinkRig& rig)
{
    SetupDataRecord data = defaultSetupData("1.0.0");
    for (std::size_t i = 0; i < data.Address.size(); ++i) {
        RegisterAddress place;
        ParseAddress(data.Address[i], place);
        ValueBytes bytes{};
        for (int byte = 0; byte < registerWidth(place.RegLetter); ++byte)
            bytes[static_cast<std::size_t>(byte)] =
                rig.board.peek(static_cast<std::uint16_t>(place.RegAddress + byte));
        data.Value[i] = static_cast<std::int32_t>(composeValue(place, bytes));
    }
    data.Value[kSetupSlot] = 510;
    data.Value[labelBase(5)] = 44;
    data.Value[labelBase(5) + kDuctors] = 300;
    return data;
}

Claim compareAndRestore(LinkRig& rig)
{
    const SetupDataRecord wanted = wantedData(rig);
    ControllerReading reading(rig.link, &wanted);
    for (int steps = 0; !reading.ended() && steps < 10'000; ++steps)
        reading.step();
    if (reading.failed())
        return {};
    Comparison comparison(wanted, reading.data(), reading.running());
    comparison.tickOrdinary();
    return restore(rig, comparison.tickedRows());
}

struct PortThere : PortSearch
{
    void remember() override {}
    bool present() override { return true; }
};

/// The cable comes off and is put back; one attention byte finds the board again.
Claim reconnect(LinkRig& rig)
{
    using namespace std::chrono_literals;
    rig.link.CloseRSComm();
    ScriptedPrompts person;
    ProgramState state{QDir(QString::fromStdString(rig.folder.path().string())), rig.port,
                       rig.clock, person};
    PortThere search;
    Reconnect back{state,
                   rig.port,
                   rig.clock,
                   search,
                   {[] { return true; }, [&] { state.setOnline(true); }, [] {}}};
    back.setEnabled(true);
    state.setOnline(true);
    rig.line.unplug();
    back.boardLost();
    state.dropOffline();
    back.boxAnswered(BoxAnswer::Cancel);
    state.ApplyOnlineMode();
    rig.line.plugIn();
    for (int ticks = 0; ticks < 200 && !state.canReachBoard(); ++ticks) {
        rig.clock.pause(50ms);
        back.tick();
    }
    Claim claim{state.canReachBoard(), {}};
    claim.values = state.gLink.RSRead("W690");
    claim.done = claim.done && state.gLink.readSucceeded();
    state.gLink.CloseRSComm();
    return claim;
}

/// A whole command of tambrix-cli on the rig's line.
Claim command(LinkRig& rig, const QString& name, const QStringList& arguments,
              std::vector<std::pair<std::string, std::int32_t>> wanted)
{
    rig.link.CloseRSComm();
    const auto& table = commandTable();
    const auto found = std::ranges::find(table, name, &Command::name);
    QCommandLineParser parser;
    parser.addOptions(found->options);
    parser.parse(QStringList{name} + arguments);
    Console console(true, false);
    console.setSilent();
    CommonOptions options;
    options.programFolder = QString::fromStdString(rig.folder.path().string());
    options.line.emplace(ReadyLine{rig.port, rig.clock});
    Claim claim;
    try {
        claim.done =
            found->run({parser, parser.positionalArguments(), options, console}) == ExitCode::Done;
    } catch (const Failure&) {
        claim.done = false;
    }
    if (claim.done)
        claim.verified = std::move(wanted);
    return claim;
}

Claim commandWrite(LinkRig& rig)
{
    return command(rig, "write", {"W690=510", "B692=180"}, {{"W690", 510}, {"B692", 180}});
}

Claim commandDownload(LinkRig& rig)
{
    SetupDataRecord wanted = wantedData(rig);
    wanted.Version = kFileVersion;
    const auto file = rig.folder.write("in.sdt", setupFileBytes(wanted));
    return command(rig, "download", {QString::fromStdString(file.string()), "--no-backup"},
                   {{"W690", 510}, {"B3250", 44}, {"W3260", 300}});
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

/// A value is changed on a screen, which then shows the registers anew.
Claim edit(LinkRig& rig)
{
    const Claim claim = writeAll(rig, {{"W690", "1200"}});
    const Claim shown = readAll(rig, {"W690", "B692", "B65"});
    return {claim.done && shown.done, shown.values};
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
        {"on-line edit", edit},
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
        {"restore and verify", restoreFew},
        {"compare and restore", compareAndRestore, 211},
        {"reconnect", reconnect},
        {"tambrix-cli write", commandWrite},
        {"tambrix-cli download", commandDownload, 211},
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
