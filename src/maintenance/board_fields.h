#pragma once

#include "controls/numeric_entry_field.h"
#include "platform/task.h"
#include "shell/program_state.h"

#include <QDateTime>
#include <QObject>

#include <array>
#include <functional>
#include <string>

class QGridLayout;
class QGroupBox;
class QLabel;
class QPushButton;

namespace tambrix {

class LinkPoller;
class ValueLabel;

/// The eight numeric fields of the target board window and the two tabs that they stand on: network
/// addresses, and clock and calendar.
class BoardFields : public QObject
{
    Q_OBJECT

public:
    static constexpr std::size_t kFields = 8;

    /// `focusSink` gets the focus when an edit ends; `now` is the PC's date and time.
    BoardFields(ProgramState& state, QWidget& focusSink, std::function<QDateTime()> now);

    QWidget* addressPage() { return m_addressPage; }
    QWidget* clockPage() { return m_clockPage; }

    /// Shows what boards of this type have, all of it disabled but the clock's fields.
    void prepare(int boardType);

    /// On line: enables what the board has. Off line: greys everything.
    void showMode(bool online);

    /// Reads all registers once, in turns of `poller`; a field that is being edited is left alone.
    Task refresh(LinkPoller& poller);

    /// Shows the PC's time and date.
    void showPcClock(const QDateTime& now);

private:
    QWidget* makeAddressPage(QWidget& focusSink);
    QWidget* makeClockPage(QWidget& focusSink);
    QGroupBox* makeClockFrame(QWidget& focusSink, std::size_t first, QPushButton* button);
    void addField(QGridLayout& grid, std::size_t index, int row, int column, QWidget& focusSink);
    void enableField(std::size_t index, bool enabled);
    void enableClock(bool enabled);
    void write(std::size_t index, const QString& text);
    void writeIfPossible(const char* reg, const QString& value);
    void setTime();
    void setDate();

    ProgramState& m_state;
    std::function<QDateTime()> m_now;
    std::array<QLabel*, kFields> m_labels{};
    std::array<NumericEntryField*, kFields> m_fields{};
    std::array<QGroupBox*, 2> m_clockFrames{};
    QPushButton* m_setTime;
    QPushButton* m_setDate;
    ValueLabel* m_pcTime;
    ValueLabel* m_pcDate;
    bool m_hasClock = false;
    bool m_hasSecondAddress = false;
    QWidget* m_addressPage;
    QWidget* m_clockPage;
};

} // namespace tambrix
