#pragma once

#include <QString>

namespace tambrix {

/// What the 500 ms poll shows: the long text on the main display and the line in the status bar.
struct SystemMessage
{
    QString display; ///< lines end in CR LF
    QString status;
};

/// On line: `alarmWord` is the value of B65, bit k = feedback fault of ductor k + 1.
SystemMessage onlineMessage(int alarmWord);

SystemMessage offlineMessage(bool commError);

} // namespace tambrix
