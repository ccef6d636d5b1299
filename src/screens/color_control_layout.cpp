// How the colour control screen is laid out.

#include "screens/color_control_screen.h"

#include "controls/fonts.h"
#include "controls/named_controls.h"
#include "controls/value_label.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <vector>

namespace tambrix {

namespace {

constexpr int kOnColumn = 1;
constexpr int kCycleColumn = 2;
constexpr int kDensityColumn = 3;

QLabel* makeColumnTitle(int index, const char* text)
{
    QLabel* title = makeLabel(arrayName("lblDescription", index), QLatin1String(text));
    title->setAlignment(Qt::AlignCenter);
    return title;
}

/// One row of a caption and a value that the controller shows.
void addStatusRow(QGridLayout& grid, int row, QLabel* caption, QLabel* value)
{
    grid.addWidget(caption, row, 0);
    grid.addWidget(value, row, 1);
}

} // namespace

void ColorControlScreen::buildFields()
{
    setObjectName(QStringLiteral("frmColorControl"));
    setWindowTitle(QStringLiteral("Color Control"));
    setPoints(*this, kScreenPoints);
    for (std::size_t i = 0; i < kFields; ++i) {
        const int index = static_cast<int>(i);
        m_fields[i] = new NumericEntryField(state().prompts, *cmdDefault(), rulesOf(i));
        m_fields[i]->setNames(arrayName("txtColorCtrl", index), arrayName("updColorCtrl", index));
    }
    m_frames = {makeColorFrame(), makeStatusFrame(), makeResponseFrame(), makeManualFrame()};

    auto* side = new QVBoxLayout;
    for (const std::size_t frame : {1U, 2U, 3U})
        side->addWidget(m_frames[frame]);
    side->addStretch();
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(m_frames[0], 0, Qt::AlignTop);
    layout->addLayout(side);
    layout->addStretch();
    setReadingOrder();
}

QGroupBox* ColorControlScreen::makeColorFrame()
{
    QGroupBox* frame = makeFrame(arrayName("fraColorCtrl", 0), QStringLiteral("Color Control"));
    auto* grid = new QGridLayout(frame);
    grid->setHorizontalSpacing(24);
    grid->setVerticalSpacing(16);
    m_labelCaption = m_fields[kLabelField]->makeCaption(arrayName("lblDescription", 8),
                                                        QStringLiteral("&Label Number:"));
    grid->addWidget(m_labelCaption, 0, 0);
    grid->addWidget(m_fields[kLabelField], 0, kOnColumn, Qt::AlignHCenter);
    grid->addWidget(makeColumnTitle(9, "ON Duration (0.1 cans)"), 1, kOnColumn);
    grid->addWidget(makeColumnTitle(10, "CYCLE Duration (0.1 cans)"), 1, kCycleColumn);
    grid->addWidget(makeColumnTitle(11, "Color Density"), 1, kDensityColumn);
    for (int d = 0; d < kDuctors; ++d)
        addDuctorRow(*grid, d);
    return frame;
}

void ColorControlScreen::addDuctorRow(QGridLayout& grid, int ductor)
{
    const auto d = static_cast<std::size_t>(ductor);
    const int row = 2 + ductor;
    NumericEntryField* on = m_fields[d];
    NumericEntryField* cycle = m_fields[d + kDuctors];
    QLabel* caption = on->makeCaption(arrayName("lblDescription", ductor),
                                      QStringLiteral("#&%1:").arg(ductor + 1));
    caption->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    const QString spoken = QStringLiteral("%1 ductor %2");
    on->setAccessibleName(spoken.arg(QStringLiteral("ON Duration")).arg(ductor + 1));
    cycle->setAccessibleName(spoken.arg(QStringLiteral("CYCLE Duration")).arg(ductor + 1));
    m_densities[d] = makeValueLabel(arrayName("lblColorCtrl", ductor), QStringLiteral("0"),
                                    spoken.arg(QStringLiteral("Color Density")).arg(ductor + 1));
    grid.addWidget(caption, row, 0);
    grid.addWidget(on, row, kOnColumn, Qt::AlignHCenter);
    grid.addWidget(cycle, row, kCycleColumn, Qt::AlignHCenter);
    grid.addWidget(m_densities[d], row, kDensityColumn);
}

QGroupBox* ColorControlScreen::makeStatusFrame()
{
    QGroupBox* frame = makeFrame(arrayName("fraColorCtrl", 1), QStringLiteral("Ductor Status"));
    auto* grid = new QGridLayout(frame);
    grid->setColumnStretch(0, 1);
    const std::array captions = {"Operational Mode:", "Ductors Auto ON:"};
    for (int row = 0; row < 2; ++row) {
        const QString caption = QLatin1String(captions[static_cast<std::size_t>(row)]);
        ValueLabel* value =
            makeValueLabel(arrayName("lblStatus", 2 + row), QStringLiteral("-"), caption);
        m_status[2 + static_cast<std::size_t>(row)] = value;
        addStatusRow(*grid, row, makeLabel(arrayName("lblDescription", 12 + row), caption), value);
    }
    return frame;
}

QGroupBox* ColorControlScreen::makeResponseFrame()
{
    QGroupBox* frame =
        makeFrame(arrayName("fraColorCtrl", 2), QStringLiteral("Solenoid Response Time"));
    auto* grid = new QGridLayout(frame);
    grid->setColumnStretch(0, 1);
    grid->addWidget(m_fields[kStationField]->makeCaption(arrayName("lblDescription", 14),
                                                         QStringLiteral("&Station Number:")),
                    0, 0);
    grid->addWidget(m_fields[kStationField], 0, 1, Qt::AlignRight);
    const std::array captions = {"Solenoid \"ON\" Response Time (msec):",
                                 "Solenoid \"OFF\" Response Time (msec):"};
    for (int i = 0; i < 2; ++i) {
        const QString caption = QLatin1String(captions[static_cast<std::size_t>(i)]);
        ValueLabel* value = makeValueLabel(arrayName("lblStatus", i), QStringLiteral("0"), caption);
        m_status[static_cast<std::size_t>(i)] = value;
        addStatusRow(*grid, 1 + i, makeLabel(arrayName("lblDescription", 15 + i), caption), value);
    }
    return frame;
}

QGroupBox* ColorControlScreen::makeManualFrame()
{
    QGroupBox* frame =
        makeFrame(arrayName("fraColorCtrl", 3), QStringLiteral("Ductors Manual Control"));
    auto* on = makeButton(QStringLiteral("cmdDuctorsManualON"), QStringLiteral("Ductors O&N All"));
    connect(on, &QPushButton::clicked, this, [this] { changeManual(true); });
    auto* off =
        makeButton(QStringLiteral("cmdDuctorsManualOFF"), QStringLiteral("D&uctors O&FF All"));
    connect(off, &QPushButton::clicked, this, [this] { changeManual(false); });

    m_manual.layOut(*frame, *on, *off);
    return frame;
}

/// Along the rows of the ductors, then down the right-hand side.
void ColorControlScreen::setReadingOrder()
{
    std::vector<QWidget*> order = {cmdDefault(), m_fields[kLabelField]};
    for (std::size_t d = 0; d < kDuctors; ++d)
        order.insert(order.end(), {m_fields[d], m_fields[d + kDuctors]});
    order.push_back(m_fields[kStationField]);
    order.insert(order.end(), m_manual.boxes().begin(), m_manual.boxes().end());
    for (QPushButton* button : m_frames[3]->findChildren<QPushButton*>())
        order.push_back(button);
    setTabSequence(order);
}

} // namespace tambrix
