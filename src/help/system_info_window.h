#pragma once

#include "help/system_info.h"

#include <QDialog>

namespace tambrix {

/// Shows the system information, with a button that copies all of it as text.
class SystemInfoWindow : public QDialog
{
    Q_OBJECT

public:
    explicit SystemInfoWindow(const std::vector<SystemFact>& facts, QWidget* parent = nullptr);
};

} // namespace tambrix
