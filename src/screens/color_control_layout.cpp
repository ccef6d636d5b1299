// How the colour control screen is laid out.

#include "screens/color_control_screen.h"

#include "controls/lamp.h"
#include "controls/named_controls.h"
#include "controls/steady_place.h"
#include "controls/text_size.h"
#include "controls/value_bar.h"
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
constexpr int kBarColumn = 4;

constexpr int kTightest = 4; // between rows; the rest of the height is shared out

QLabel* makeColumnTitle(int index, const char* text)
{
    QLabel* title = makeLabel(arrayName("lblDescription", index), QLatin1String(text));
    title->setAlignment(Qt::AlignCenter);
    title->setForegroundRole(QPalette::PlaceholderText);
    return title;
}

} // namespace

void ColorControlScreen::buildFields()
{
    setObjectName(QStringLiteral("frmColorControl"));
    setWindowTitle(QStringLiteral("Color Control"));
    for (std::size_t i = 0; i < kFields; ++i) {
        const int index = static_cast<int>(i);
        m_fields[i] = new NumericEntryField(state().prompts, *cmdDefault(), rulesOf(i));
        m_fields[i]->setNames(arrayName("txtColorCtrl", index), arrayName("updColorCtrl", index));
        setTextSize(*m_fields[i], TextSize::Value);
    }
    m_frames = {makeColorFrame(), makeStatusFrame(), makeResponseFrame(), makeManualFrame()};

    auto* side = new QVBoxLayout;
    side->addWidget(m_frames[1]);
    side->addWidget(m_frames[2]);
    side->addWidget(m_frames[3], 1);
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(m_frames[0], 3);
    layout->addLayout(side, 2);
    setReadingOrder();
}

QGroupBox* ColorControlScreen::makeColorFrame()
{
    QGroupBox* frame = makeFrame(arrayName("fraColorCtrl", 0), QStringLiteral("Color Control"));
    m_labelCaption = m_fields[kLabelField]->makeCaption(arrayName("lblDescription", 8),
                                                        QStringLiteral("&Label Number:"));
    auto* label = new QHBoxLayout;
    label->addWidget(m_labelCaption);
    label->addWidget(m_fields[kLabelField]);
    m_labelName = new ValueLabel(QStringLiteral("lblLabelName"), QStringLiteral("Label Name"), {});
    m_labelName->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    setTextSize(*m_labelName, TextSize::Value);
    label->addWidget(m_labelName, 1);
    auto* inside = new QVBoxLayout(frame);
    inside->addLayout(label);
    auto* grid = new QGridLayout;
    inside->addLayout(grid, 1); // the rows' distances are those of this frame
    grid->setVerticalSpacing(kTightest);
    grid->setColumnStretch(kBarColumn, 1);
    grid->addWidget(makeColumnTitle(9, "ON Duration (0.1 cans)"), 0, kOnColumn);
    grid->addWidget(makeColumnTitle(10, "CYCLE Duration (0.1 cans)"), 0, kCycleColumn);
    grid->addWidget(makeColumnTitle(11, "Color Density"), 0, kDensityColumn, 1, 2);
    for (int d = 0; d < kDuctors; ++d)
        addDuctorRow(*grid, d);
    return frame;
}

void ColorControlScreen::addDuctorRow(QGridLayout& grid, int ductor)
{
    const auto d = static_cast<std::size_t>(ductor);
    const int row = 1 + ductor;
    NumericEntryField* on = m_fields[d];
    NumericEntryField* cycle = m_fields[d + kDuctors];
    QLabel* caption = on->makeCaption(arrayName("lblDescription", ductor),
                                      QStringLiteral("#&%1:").arg(ductor + 1));
    setTextSize(*caption, TextSize::Text, true);
    const QString spoken = QStringLiteral("%1 ductor %2");
    on->setAccessibleName(spoken.arg(QStringLiteral("ON Duration")).arg(ductor + 1));
    cycle->setAccessibleName(spoken.arg(QStringLiteral("CYCLE Duration")).arg(ductor + 1));
    m_densities[d] = makeValueLabel(arrayName("lblColorCtrl", ductor), QStringLiteral("0"),
                                    spoken.arg(QStringLiteral("Color Density")).arg(ductor + 1));
    m_densities[d]->setWidest(QStringLiteral("000.0%"));
    m_bars[d] = new ValueBar(spoken.arg(QStringLiteral("Color Density")).arg(ductor + 1));
    m_bars[d]->setObjectName(arrayName("picDensity", ductor));
    grid.setRowStretch(row, 1);
    grid.addWidget(caption, row, 0);
    grid.addWidget(on, row, kOnColumn, Qt::AlignCenter);
    grid.addWidget(cycle, row, kCycleColumn, Qt::AlignCenter);
    grid.addWidget(new SteadyPlace(m_densities[d]), row, kDensityColumn, Qt::AlignVCenter);
    grid.addWidget(m_bars[d], row, kBarColumn, Qt::AlignVCenter);
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
        value->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        setTextSize(*value, TextSize::Value, true);
        Lamp*& lamp = m_statusLamps[static_cast<std::size_t>(row)];
        lamp = new Lamp(spokenText(caption));
        lamp->setObjectName(arrayName("picStatus", row));
        grid->addWidget(makeLabel(arrayName("lblDescription", 12 + row), caption), row, 0);
        grid->addWidget(lamp, row, 1);
        grid->addWidget(new SteadyPlace(value), row, 2);
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
        grid->addWidget(makeLabel(arrayName("lblDescription", 15 + i), caption), 1 + i, 0);
        grid->addWidget(new SteadyPlace(value), 1 + i, 1);
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
        makeButton(QStringLiteral("cmdDuctorsManualOFF"), // kept: two key marks, the first counts
                   QStringLiteral("D&uctors O&FF All"));
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
