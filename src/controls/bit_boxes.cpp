#include "controls/bit_boxes.h"

#include "controls/calm_style.h"
#include "controls/named_controls.h"
#include "controls/text_size.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>

namespace tambrix {

BitBoxes::BitBoxes(const char* name, const QString& mark, const QString& purpose,
                   std::function<bool()> changed)
    : m_changed(std::move(changed))
{
    for (int d = 0; d < kDuctors; ++d) {
        const QString number = QString::number(d + 1);
        auto* box = new QCheckBox(mark + number);
        box->setObjectName(arrayName(name, d));
        box->setAccessibleName(purpose + u' ' + number);
        // Not clicked(): a screen reader's action toggles without a click.
        QObject::connect(box, &QCheckBox::toggled, box,
                         [this, d](bool ticked) { boxToggled(d, ticked); });
        m_boxes[static_cast<std::size_t>(d)] = box;
    }
}

int BitBoxes::bits() const
{
    int bits = 0;
    for (std::size_t d = 0; d < m_boxes.size(); ++d)
        bits |= m_boxes[d]->isChecked() ? 1 << d : 0;
    return bits;
}

void BitBoxes::boxToggled(int index, bool ticked)
{
    if (m_showing || m_changed())
        return;
    const int bit = 1 << index;
    show(ticked ? bits() & ~bit : bits() | bit);
}

void BitBoxes::show(int bits)
{
    m_showing = true;
    for (std::size_t d = 0; d < m_boxes.size(); ++d)
        m_boxes[d]->setChecked((bits & (1 << d)) != 0);
    m_showing = false;
}

void BitBoxes::changeAll(bool ticked)
{
    for (QCheckBox* box : m_boxes)
        box->setChecked(ticked);
}

void BitBoxes::setEnabled(bool enabled)
{
    for (QCheckBox* box : m_boxes)
        box->setEnabled(enabled);
}

void BitBoxes::layOut(QGroupBox& frame, QPushButton& all, QPushButton& none) const
{
    constexpr int kHalf = kDuctors / 2;
    auto* grid = new QGridLayout(&frame);
    int column = 0;
    for (QCheckBox* box : m_boxes) {
        setCaptionBelow(*box);
        setTextSize(*box, TextSize::Text, true);
        grid->setColumnStretch(column, 1);
        grid->addWidget(box, 0, column++, Qt::AlignHCenter);
    }
    grid->addWidget(&all, 1, 0, 1, kHalf);
    grid->addWidget(&none, 1, kHalf, 1, kHalf);
    grid->setRowStretch(2, 1);
}

} // namespace tambrix
