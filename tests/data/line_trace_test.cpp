#include "data/line_figures.h"
#include "data/line_recorder.h"
#include "data/line_story.h"
#include "data/trace_text.h"
#include "tests/support/link_rig.h"

#include <QBuffer>
#include <QDateTime>
#include <QDir>

using namespace tambrix;
using namespace std::chrono_literals;

namespace {

/// The link with a recorder between it and its port.
struct TraceRig : LinkRig
{
    LineRecorder recorder{clock};
    TracedPort traced{port, recorder};

    TraceRig()
    {
        board.press().stop();
        board.poke(690, 0x26);
        board.poke(691, 0x07);
        board.poke(1298, 0xD2);
        board.poke(1299, 0x04);
        link.OpenRSComm(traced);
    }
};

/// What the entries of a trace say; "!" and the trouble behind those that failed.
std::string story(const LineTrace& trace)
{
    LineStory told;
    told.follow(trace);
    std::string text;
    for (const LineEntry& entry : told.entries()) {
        text += meaning(entry).toStdString();
        if (entry.trouble != LineTrouble::None)
            text += "!" + std::to_string(static_cast<int>(entry.trouble)) + "/" +
                    std::to_string(entry.resends);
        text += "; ";
    }
    return text;
}

QString read(const QByteArray& text, LineTrace& trace)
{
    QBuffer buffer;
    buffer.setData(text);
    buffer.open(QIODevice::ReadOnly);
    return readTrace(buffer, trace);
}

} // namespace

TEST(LineTraceTest, KnowsTheModeThatTheBoardHasBeenInForLong)
{
    TraceRig rig;
    for (std::size_t i = 0; i < LineRecorder::kAlways; ++i)
        rig.link.RSRead("W690");
    const std::string told = story(rig.recorder.trace());
    EXPECT_TRUE(told.ends_with("read W690 = 1830; read W690 = 1830; ")) << told.substr(0, 80);
    rig.link.RSRead("W1298");
    LineTrace loaded(1000);
    EXPECT_EQ(read(traceText(rig.recorder.trace(), 9), loaded), ""); // begins within a frame
    EXPECT_EQ(story(loaded), "read W690 = 1830; read W1298 = ****; ");
}

TEST(LineTraceTest, TellsASessionAndKeepsThePasscodeToItself)
{
    TraceRig rig;
    rig.link.RSRead("W690");
    rig.link.RSWrite("B692", "150");
    rig.link.RSRead("B692");
    rig.link.RSRead("W1298");
    rig.link.RSWrite("W1298", "1234");
    rig.link.RSWrite("D940", "123456789");
    rig.link.RSRead("D940");
    rig.link.CloseRSComm();
    const std::string told =
        "attention; attention; read mode; read W690 = 1830; attention; write mode; "
        "write B692 = 150; attention; read mode; read B692 = 150; read W1298 = ****; "
        "attention; write mode; write W1298 = ****; write D940 = 123456789; "
        "attention; read mode; read D940 = 123456789; attention; ";
    EXPECT_EQ(story(rig.recorder.trace()), told);
    EXPECT_EQ(rig.recorder.errors(), 0u);

    const QByteArray text = traceText(rig.recorder.trace());
    for (const char* secret : {" D2", " 04\n"})
        EXPECT_FALSE(text.contains(secret));
    EXPECT_TRUE(text.contains(" > 05\n"));
    LineTrace loaded(1000);
    EXPECT_EQ(read(text, loaded), "");
    EXPECT_EQ(story(loaded), told);
    EXPECT_EQ(traceText(loaded), text);
}

TEST(LineTraceTest, TellsWhatFailedAndHowOftenItWasResent)
{
    using Kind = LineFault::Kind;
    struct Case
    {
        std::size_t exchange; ///< 0 attention, 1 read mode, 2 and 3 the frame
        LineFault fault;
        const char* told;
    };
    const Case cases[] = {{3, {Kind::LoseReply}, "read B692!1/1; "},
                          {2, {Kind::LoseReply}, "read a register!1/1; "},
                          {2, {Kind::ChangeReply, 0x01}, "read a register!2/0; "},
                          {3, {Kind::DoubleReply}, "read B692 = 200; read a register!2/0; "},
                          {1, {Kind::ChangeReply, 0x01}, "read mode!2/0; "},
                          {3, {Kind::Unplug}, "read B692!1/"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.told);
        TraceRig rig;
        rig.line.clearFaults();
        rig.line.setFault(c.exchange, c.fault);
        rig.link.RSRead("B692");
        rig.link.RSRead("B692");
        EXPECT_NE(story(rig.recorder.trace()).find(c.told), std::string::npos)
            << story(rig.recorder.trace());
        EXPECT_GT(rig.recorder.errors(), 0u);
    }
}

TEST(LineTraceTest, ALateByteOfThePasscodeIsMaskedToo)
{
    for (const auto kind : {LineFault::Kind::DelayReply, LineFault::Kind::DoubleReply}) {
        TraceRig rig;
        rig.line.clearFaults();
        rig.line.setFault(3, {kind, 0, 1500ms}); // comes after the link has given it up
        rig.link.RSRead("W1298");
        rig.link.RSRead("B692");
        EXPECT_FALSE(traceText(rig.recorder.trace()).contains("D2"));
    }
}

TEST(LineTraceTest, KeepsTheNewestAndCountsOn)
{
    VirtualClock clock;
    LineRecorder recorder(clock);
    recorder.watch();
    LineStory told;
    for (std::size_t i = 0; i < LineRecorder::kWatched + 10; ++i) {
        recorder.sent(0xFF);
        recorder.received(0x55);
    }
    told.follow(recorder.trace());
    EXPECT_EQ(recorder.trace().begin(), 10u);
    EXPECT_EQ(told.entries().size(), LineRecorder::kWatched);
    recorder.unwatch();
    EXPECT_EQ(recorder.trace().end() - recorder.trace().begin(), LineRecorder::kAlways);
    told.follow(recorder.trace());
    EXPECT_EQ(told.entries().size(), LineRecorder::kAlways);
    EXPECT_EQ(told.entries().front().first, recorder.trace().begin());
}

TEST(LineTraceTest, ReadsWhatTheBoardPrintsAndNamesALineThatItDoesNot)
{
    const QByteArray session = "    0.000000 > FF\n    0.002083 < 55\n    0.003000 > 01\n"
                               "    0.005000 < 55\n    0.006000 > 00\n    0.008000 < 00\n"
                               "    0.009000 > 40\n    0.011000 < 07\n\n    0.012000 < 07\n";
    LineTrace trace(1000);
    EXPECT_EQ(read(session, trace), "");
    EXPECT_EQ(story(trace), "attention; read mode; read B64 = 7; byte from the board!3/0; ");
    EXPECT_EQ(trace.at(0).took, Duration(2083us));
    for (const char* wrong : {"1.0 > FFF\n", "1.0 > G0\n", "1.0 = 55\n", "x > 55\n", "nan > 55\n",
                              "-1 > 55\n", "1.0 > 55 66\n", "1.0 > -1\n"}) {
        LineTrace rest(1000);
        EXPECT_TRUE(read(session + wrong, rest).startsWith("Line 11 is none of a trace")) << wrong;
    }
    EXPECT_TRUE(read(QByteArray(5000, '1'), trace).startsWith("Line 1 "));
}

TEST(LineTraceTest, KeepsTheTracesOfTheLastTwentyFailures)
{
    VirtualClock clock;
    LineRecorder recorder(clock);
    recorder.watch();
    for (std::size_t i = 0; i < LineRecorder::kAlways + 5; ++i)
        recorder.sent(0xFF);
    const ScratchFolder scratch;
    scratch.write("Traces/Trace of my own.txt", "stays");
    const QDir folder(QString::fromStdString((scratch.path() / "Traces").string()));
    const QDateTime first(QDate(2026, 3, 1), QTime(23, 59, 50));
    for (int i = 0; i < 23; ++i)
        EXPECT_FALSE(keepTrace(recorder.trace(), folder, first.addSecs(i)));
    const QStringList kept = folder.entryList({}, QDir::Files, QDir::Name);
    EXPECT_EQ(kept.size(), 21);
    EXPECT_EQ(kept.first(), "Trace 2026-03-01 23-59-53.txt");
    EXPECT_EQ(kept.last(), "Trace of my own.txt");
    QFile file(folder.filePath(kept.first()));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().count('\n'), static_cast<qsizetype>(LineRecorder::kAlways));
    EXPECT_TRUE(keepTrace(recorder.trace(), QDir(file.fileName()), first)); // a file is no folder
}

TEST(LineTraceTest, FiguresTellASlowLine)
{
    LineTrace trace(5000);
    EXPECT_EQ(lineFigures(trace, 9600).answered, 0u);
    Duration now{};
    for (int i = 0; i < 200; ++i, now += 4ms)
        trace.add({now, i < 100 ? 2ms : i < 190 ? 3ms : 4ms, 0, 0});
    const LineFigures wire = lineFigures(trace, 9600);
    EXPECT_EQ(wire.shortest, Duration(2ms));
    EXPECT_EQ(wire.median, Duration(3ms));
    EXPECT_EQ(wire.slowest99, Duration(4ms));
    EXPECT_NEAR(wire.perSecond, 250, 1);
    EXPECT_NEAR(wire.shareOfWire, 0.52, 0.01);
    EXPECT_EQ(slowAdvice(wire, 9600), "");
    EXPECT_NE(slowAdvice(wire, 19200), "");
    now += 60s; // what is older says nothing any more
    trace.add({now, 16ms, 0, 0});
    EXPECT_EQ(lineFigures(trace, 9600).answered, 1u);
    EXPECT_TRUE(slowAdvice(lineFigures(trace, 9600), 9600).contains("latency timer"));
}
