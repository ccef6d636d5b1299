#pragma once

#include "controls/picture.h"

#include <QTime>

#include <cstdint>

namespace tambrix {

/// One calm line that says whether there is an alarm; it turns red, with a symbol, when there is
/// one. Changes are announced to screen readers.
class AlarmBanner : public Picture
{
    Q_OBJECT

public:
    AlarmBanner();

    /// The ductors without feedback: bit 0 for ductor 1. `now` is kept as the time since when.
    void showAlarms(std::uint8_t ductors, const QTime& now);
    /// Nobody knows of alarms, and why: "Off line", "No communication".
    void showUnknown(const QString& why);

    /// An alarm is shown.
    bool alarmed() const { return m_ductors != 0; }

    QString spokenValue() const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void change(std::uint8_t ductors, const QString& why);
    QString text() const;
    QString since() const;
    void paintMark(QPainter& painter, const QRectF& place) const;
    void paintTexts(QPainter& painter, const QRect& place) const;

    std::uint8_t m_ductors = 0;
    QString m_why; ///< empty: alarms are known
    QTime m_since;
};

} // namespace tambrix
