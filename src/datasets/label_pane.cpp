#include "datasets/label_pane.h"

#include "controls/named_controls.h"
#include "controls/text_size.h"
#include "controls/value_bar.h"
#include "controls/value_label.h"
#include "data/color_density.h"
#include "data/entry_group.h"

#include <QVBoxLayout>

namespace tambrix {

LabelPane::LabelPane(ProgramState& state)
    : m_state(state),
      m_title(makeLabel(QStringLiteral("lblShownLabel"), {})),
      m_name(makeLabel(QStringLiteral("lblShownName"), {}))
{
    setTextSize(*m_title, TextSize::Value, true);
    m_name->setWordWrap(true);
    m_name->setForegroundRole(QPalette::PlaceholderText);
    auto* inside = new QVBoxLayout(this);
    inside->setContentsMargins({});
    inside->addWidget(m_title);
    inside->addWidget(m_name);
    auto* grid = new QGridLayout;
    grid->setColumnStretch(1, 1);
    inside->addLayout(grid, 1);
    for (int d = 0; d < kDuctors; ++d) {
        const auto ductor = static_cast<std::size_t>(d);
        const QString what = QStringLiteral("Color Density ductor %1").arg(d + 1);
        auto* number = makeLabel(arrayName("lblDuctor", d), QString::number(d + 1));
        setTextSize(*number, TextSize::Text, true);
        m_bars[ductor] = new ValueBar(what);
        m_bars[ductor]->setObjectName(arrayName("picLabelDensity", d));
        m_densities[ductor] = new ValueLabel(arrayName("lblLabelDensity", d), what, {});
        m_densities[ductor]->setWidest(QStringLiteral("000.0%"));
        m_densities[ductor]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        grid->addWidget(number, d, 0);
        grid->addWidget(m_bars[ductor], d, 1, Qt::AlignVCenter);
        grid->addWidget(m_densities[ductor], d, 2);
    }
}

void LabelPane::showLabel(int label)
{
    m_label = label;
    const auto value = [this](int slot) {
        return m_state.gWorkingData.Value[static_cast<std::size_t>(slot)];
    };
    const QString& name = m_state.labelNames.of(label);
    m_title->setText(QStringLiteral("Label %1").arg(label));
    m_name->setText(name.isEmpty() ? QStringLiteral("no name") : name);
    for (int d = 0; d < kDuctors; ++d) {
        const auto ductor = static_cast<std::size_t>(d);
        const int on = value(labelSlot(label, d, false));
        const int cycle = value(labelSlot(label, d, true));
        const int most = value(reg::kMaximumOn.slot);
        m_densities[ductor]->setValue(colorDensity(on, cycle, most));
        m_bars[ductor]->show(colorDensityPercent(on, cycle, most) / 100,
                             m_densities[ductor]->text());
    }
}

} // namespace tambrix
