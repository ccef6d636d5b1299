#include "shell/patient_port.h"
#include "shell/qt_prompts.h"
#include "tests/support/virtual_clock.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

using namespace tambrix;
using namespace std::chrono_literals;

namespace {

/// A port on which the answer comes after `answerAfter`, in virtual time.
class SlowPort : public SerialPort
{
public:
    explicit SlowPort(VirtualClock& clock) : m_clock(clock) {}

    std::optional<PortFault> configure(int, std::string_view) override { return std::nullopt; }
    std::optional<PortFault> open() override { return std::nullopt; }
    void close() override {}
    bool isOpen() const override { return true; }
    std::size_t bytesWaiting() override { return m_clock.now() >= answerAfter ? 1 : 0; }
    std::uint8_t readByte() override { return 0; }
    void writeByte(std::uint8_t) override {}
    void discardInput() override {}
    bool waitForInput(Duration limit) override
    {
        if (onWait)
            onWait();
        m_clock.pause(std::min(limit, std::max(answerAfter - m_clock.now(), Duration{})));
        return bytesWaiting() > 0;
    }

    Duration answerAfter{5s};
    std::function<void()> onWait;

private:
    VirtualClock& m_clock;
};

} // namespace

TEST(PatientPortTest, ShowsALongWaitAndLetsTheWindowGoOn)
{
    VirtualClock clock;
    SlowPort slow(clock);
    PatientPort port(slow, clock);
    bool cursor = false;
    slow.onWait = [&] { cursor = cursor || QApplication::overrideCursor() != nullptr; };

    slow.answerAfter = clock.now() + 90ms;
    EXPECT_TRUE(port.waitForInput(1s));
    EXPECT_FALSE(cursor);

    int timers = 0;
    QTimer::singleShot(0, [&] { ++timers; });
    slow.answerAfter = clock.now() + 300ms;
    EXPECT_TRUE(port.waitForInput(1s));
    EXPECT_TRUE(cursor);
    EXPECT_EQ(timers, 1) << "the window goes on";
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);

    slow.answerAfter = clock.now() + 5s;
    const Duration start = clock.now();
    EXPECT_FALSE(port.waitForInput(1s));
    EXPECT_EQ(clock.now() - start, 1s);
}

TEST(PromptTexts, HaveOneBreakALineAndFilesTheirSuffix)
{
    EXPECT_EQ(withLineBreaks("a\rb\r\nc\r\n\r\nd\ne"), "a\nb\nc\n\nd\ne");
    EXPECT_EQ(withSuffix("/press 2.5", "sdt"), "/press 2.5.sdt");
    EXPECT_EQ(withSuffix("/press.SDT", "sdt"), "/press.SDT");
    EXPECT_EQ(withSuffix("/press", ""), "/press");
}

TEST(PromptTexts, ACancelledQuestionHasNoAnswer)
{
    QtPrompts prompts;
    const auto cancelled = [](const auto& ask) {
        QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });
        return !ask().has_value();
    };
    EXPECT_TRUE(cancelled([&] { return prompts.askText("Press Name", "Name:", "Press 3"); }));
    EXPECT_TRUE(cancelled([&] { return prompts.askOpenFile({}); }));
    EXPECT_TRUE(cancelled([&] { return prompts.askSaveFile({}); }));
}
