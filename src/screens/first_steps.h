#pragma once

#include <QGroupBox>

namespace tambrix {

/// What to do when no controller has ever answered: choose a port, or look around with the
/// simulated controller. A button does each, through the menu item of the window it stands in.
class FirstSteps : public QGroupBox
{
    Q_OBJECT

public:
    FirstSteps();

private:
    void trigger(const char* menuItem);
};

} // namespace tambrix
