#include "screens/shift_data_screen.h"

#include "controls/named_controls.h"
#include "controls/numeric_entry_field.h"
#include "controls/steady_place.h"
#include "controls/text_size.h"
#include "controls/value_bar.h"
#include "controls/value_label.h"
#include "data/parameters.h"
#include "data/typed_number.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

namespace tambrix {

namespace {

std::array<std::string, kDuctors> countRegisters()
{
    std::array<std::string, kDuctors> registers;
    for (int d = 0; d < kDuctors; ++d)
        registers[static_cast<std::size_t>(d)] = addressOf(reg::kShiftCount, d);
    return registers;
}

const std::array<std::string, kDuctors> kCounts = countRegisters();
constexpr const char* kResetRequest = "B43";
constexpr int kAllDuctors = 255;
const QString kUsualCount = QStringLiteral("000,000"); // more gets room when it comes

QString grouped(qint64 count)
{
    QLocale locale;
    locale.setNumberOptions(locale.numberOptions() & ~QLocale::OmitGroupSeparator);
    return locale.toString(count);
}

} // namespace

int resetMask(const QString& ductorNumber)
{
    const double number = leadingNumber(ductorNumber);
    if (number == 0)
        return kAllDuctors;
    const std::int32_t ductor = roundedHalfToEven(number);
    return ductor >= 1 && ductor <= kDuctors ? 1 << (ductor - 1) : 0;
}

ShiftDataScreen::ShiftDataScreen(ProgramState& state)
    : Screen(state), m_countFrame(makeCounts()), m_resetFrame(makeReset())
{
    setObjectName(QStringLiteral("frmData"));
    setWindowTitle(QStringLiteral("Shift Data"));
    auto* side = new QVBoxLayout;
    side->addWidget(m_resetFrame);
    side->addStretch();
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(m_countFrame, 3);
    layout->addLayout(side, 2);
}

/// A row per ductor; its bar has the same scale as all others.
QGroupBox* ShiftDataScreen::makeCounts()
{
    QGroupBox* frame =
        makeFrame(QStringLiteral("fraCounts"), QStringLiteral("Cycles in this Shift"));
    auto* grid = new QGridLayout(frame);
    grid->setColumnStretch(2, 1);
    for (int d = 0; d < kDuctors; ++d) {
        const auto ductor = static_cast<std::size_t>(d);
        const QString caption = QStringLiteral("Ductor #%1:").arg(d + 1);
        m_counts[ductor] =
            makeValueLabel(arrayName("lblData", d + 1), QStringLiteral("0"), caption);
        m_counts[ductor]->setWidest(kUsualCount);
        setTextSize(*m_counts[ductor], TextSize::Title, true);
        m_bars[ductor] = new ValueBar(spokenText(caption));
        m_bars[ductor]->setObjectName(arrayName("picCount", d));
        grid->addWidget(makeLabel(arrayName("lblDescription", d + 1), caption), d, 0);
        grid->addWidget(new SteadyPlace(m_counts[ductor]), d, 1);
        grid->addWidget(m_bars[ductor], d, 2);
        grid->setRowStretch(d, 1);
    }
    return frame;
}

QGroupBox* ShiftDataScreen::makeReset()
{
    EntryRules rules;
    rules.title = QStringLiteral("Spindle #1 Trip Offset:"); // kept: users know it by this name
    rules.maximum = kDuctors;
    rules.lowerBound = false; // kept: a number below 0 is let through and resets nothing
    m_ductor = new NumericEntryField(state().prompts, *cmdDefault(), rules);
    m_ductor->setNames(QStringLiteral("txtData"), QStringLiteral("updData"));
    m_ductor->setText(QStringLiteral("0"));
    m_reset = makeButton(QStringLiteral("cmdResetCounts"), QStringLiteral("&Reset Counts"));
    connect(m_reset, &QPushButton::clicked, this, &ShiftDataScreen::resetCounts);

    QGroupBox* frame = makeFrame(QStringLiteral("fraReset"), QStringLiteral("Reset"));
    auto* grid = new QGridLayout(frame);
    grid->addWidget(
        m_ductor->makeCaption(arrayName("lblDescription", 0), QStringLiteral("Ductor Number:")), 0,
        0);
    grid->addWidget(m_ductor, 0, 1);
    grid->addWidget(makeDimLabel(QStringLiteral("1 to 8, 0 for all")), 0, 2);
    grid->addWidget(m_reset, 1, 0, 1, 3);
    setTextSize(*m_ductor, TextSize::Value);
    return frame;
}

void ShiftDataScreen::applyOnlineView()
{
    m_resetFrame->setEnabled(true);
}

/// Off line there is no controller whose counts could be reset; the stored counts stay readable.
void ShiftDataScreen::applyOfflineView()
{
    m_resetFrame->setEnabled(false);
}

Task ShiftDataScreen::onlinePass()
{
    return readRegisters(kCounts, [this](std::size_t ductor, const QString& value) {
        showCount(ductor, value.toLongLong());
    });
}

Task ShiftDataScreen::offlinePass()
{
    for (int d = 0; d < kDuctors; ++d)
        showCount(static_cast<std::size_t>(d), workingValue(kShiftCountSlot + d));
    co_return;
}

void ShiftDataScreen::showCount(std::size_t ductor, qint64 count)
{
    const QString text = grouped(count);
    if (m_values[ductor] == static_cast<double>(count) && m_counts[ductor]->text() == text)
        return;
    m_counts[ductor]->setValue(text);
    m_values[ductor] = static_cast<double>(count);
    const double end = scaleEnd(m_values);
    for (std::size_t d = 0; d < m_bars.size(); ++d)
        m_bars[d]->show(m_values[d] / end, m_counts[d]->text());
}

/// An access key brings us here without the focus having left the number.
void ShiftDataScreen::resetCounts()
{
    if (m_ductor->finishEditing())
        writeRegister(kResetRequest, u' ' + QString::number(resetMask(m_ductor->text())));
}

} // namespace tambrix
