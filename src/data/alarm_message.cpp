#include "data/alarm_message.h"

#include "data/setup_data.h"

namespace tambrix {

namespace {

QString ductorAlarm(int ductor)
{
    return QStringLiteral(
               "------------------------------ ALARM MESSAGE ------------------------------\r\n"
               "Ductor No.%1 Feedback Fault\r\n"
               "Verify Ductor Cycling Operation\r\n")
        .arg(ductor);
}

} // namespace

SystemMessage onlineMessage(int alarmWord)
{
    if (alarmWord < 1)
        return {QStringLiteral("Set-up Program is Currently ONLINE\r\n-- System Normal --"),
                QStringLiteral("System Message:  All Faults Normal")};
    QString alarms;
    for (int d = 0; d < kDuctors; ++d) {
        if ((alarmWord & (1 << d)) != 0)
            alarms += ductorAlarm(d + 1);
    }
    return {alarms, QStringLiteral("System Message:  Alarm(s) Active in Q900")};
}

SystemMessage offlineMessage(bool commError)
{
    return {QStringLiteral("Set-up Program is Currently OFFLINE"),
            commError ? QStringLiteral("System Message:  Comm Fault with Q900")
                      : QStringLiteral("System Message:  Program is Currently OFFLINE")};
}

} // namespace tambrix
