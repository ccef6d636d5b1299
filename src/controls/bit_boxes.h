#pragma once

#include "data/setup_data.h"

#include <QCheckBox>

#include <array>
#include <functional>

class QGroupBox;
class QPushButton;

namespace tambrix {

/// A row of eight check boxes that show one byte of the controller, bit d for ductor d + 1.
class BitBoxes
{
public:
    /// Boxes named `name`(0) to `name`(7), captioned `mark` and 1 to 8. `changed` runs for every
    /// box that the user changes, by whatever means, not for what show() changes. Where it says
    /// no, the box goes back.
    BitBoxes(const char* name, const QString& mark, const QString& purpose,
             std::function<bool()> changed);
    BitBoxes(const BitBoxes&) = delete;
    BitBoxes& operator=(const BitBoxes&) = delete;

    const std::array<QCheckBox*, kDuctors>& boxes() const { return m_boxes; }

    /// Sum of 2^d over the ticked boxes.
    int bits() const;

    /// Ticks exactly the boxes of the bits set.
    void show(int bits);

    /// Ticks or clears every box in order, as if the user had changed each one that changes.
    void changeAll(bool ticked);

    void setEnabled(bool enabled);

    /// The boxes in one row of `frame`, and below them the buttons for all and for none.
    void layOut(QGroupBox& frame, QPushButton& all, QPushButton& none) const;

private:
    void boxToggled(int index, bool ticked);

    std::array<QCheckBox*, kDuctors> m_boxes{};
    std::function<bool()> m_changed;
    bool m_showing = false; ///< the boxes change because they are shown so
};

} // namespace tambrix
