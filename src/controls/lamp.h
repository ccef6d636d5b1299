#pragma once

#include "controls/picture.h"

#include <QString>

namespace tambrix {

enum class LampState {
    Unknown, ///< a grey dash
    Off,
    On,      ///< green
    Alarm,   ///< red, with an exclamation mark
    Unusual, ///< amber
};

/// A round lamp, with an optional caption below it.
class Lamp : public Picture
{
    Q_OBJECT

public:
    /// The lamp is `grids` half lines of text across: two beside a line of text.
    explicit Lamp(const QString& name, int grids = 2, const QString& caption = {});

    void show(LampState state);
    LampState state() const { return m_state; }

    /// What the lamp's states mean here; "on", "off" and so on unless set.
    void setWords(const QString& off, const QString& on, const QString& alarm);

    QString spokenValue() const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QFont captionFont() const;

    int m_grids;
    QString m_caption;
    QString m_off = QStringLiteral("off");
    QString m_on = QStringLiteral("on");
    QString m_alarm = QStringLiteral("alarm");
    LampState m_state = LampState::Unknown;
};

} // namespace tambrix
