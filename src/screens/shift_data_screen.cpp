#include "screens/shift_data_screen.h"

#include "controls/fonts.h"
#include "controls/named_controls.h"
#include "controls/numeric_entry_field.h"
#include "controls/value_label.h"
#include "data/parameters.h"
#include "data/typed_number.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>

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
constexpr int kCountPoints = 20;
const QString kWidestCount = QStringLiteral("655,359,999");

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
    setPoints(*this, kScreenPoints);
    for (ValueLabel* count : m_counts) {
        setPoints(*count, kCountPoints);
        count->setMinimumWidth(count->fontMetrics().horizontalAdvance(kWidestCount) + 24);
    }
    stackFrames(*this, {m_countFrame, m_resetFrame});
}

/// Ductors 1 to 4 on the left, 5 to 8 on the right.
QGroupBox* ShiftDataScreen::makeCounts()
{
    QGroupBox* frame =
        makeFrame(QStringLiteral("fraCounts"), QStringLiteral("Cycles in this Shift"));
    auto* grid = new QGridLayout(frame);
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(12);
    constexpr int kRows = kDuctors / 2;
    for (int d = 0; d < kDuctors; ++d) {
        const QString caption = QStringLiteral("Ductor #%1:").arg(d + 1);
        auto* count = makeValueLabel(arrayName("lblData", d + 1), QStringLiteral("0"), caption);
        m_counts[static_cast<std::size_t>(d)] = count;
        const int column = 2 * (d / kRows);
        grid->addWidget(makeLabel(arrayName("lblDescription", d + 1), caption), d % kRows, column);
        grid->addWidget(count, d % kRows, column + 1);
    }
    return frame;
}

QGroupBox* ShiftDataScreen::makeReset()
{
    EntryRules rules;
    rules.title = QStringLiteral("Spindle #1 Trip Offset:"); // kept: users know it by this name
    rules.maximum = kDuctors;
    rules.lowerBound = false;
    m_ductor = new NumericEntryField(state().prompts, *cmdDefault(), rules);
    m_ductor->setNames(QStringLiteral("txtData"), QStringLiteral("updData"));
    m_ductor->setText(QStringLiteral("0"));
    m_reset = makeButton(QStringLiteral("cmdResetCounts"), QStringLiteral("&Reset Counts"));
    connect(m_reset, &QPushButton::clicked, this, &ShiftDataScreen::resetCounts);

    QGroupBox* frame = makeFrame(QStringLiteral("fraReset"), QStringLiteral("Reset"));
    auto* row = new QHBoxLayout(frame);
    row->setSpacing(16);
    row->addWidget(
        m_ductor->makeCaption(arrayName("lblDescription", 0), QStringLiteral("Ductor Number:")));
    row->addWidget(m_ductor);
    row->addWidget(new QLabel(QStringLiteral("1 to 8, 0 for all")));
    row->addStretch();
    row->addWidget(m_reset);
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
    m_counts[ductor]->setValue(grouped(count));
}

/// An access key brings us here without the focus having left the number.
void ShiftDataScreen::resetCounts()
{
    if (m_ductor->finishEditing())
        writeRegister(kResetRequest, u' ' + QString::number(resetMask(m_ductor->text())));
}

} // namespace tambrix
