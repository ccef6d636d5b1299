#pragma once

#include "data/entry_range.h"
#include "link/operator.h"

#include <QAbstractSpinBox>
#include <QBasicTimer>

#include <cstdint>
#include <functional>
#include <optional>

class QLabel;

namespace tambrix {

/// What one entry field is for. A handler left empty does nothing.
struct EntryRules
{
    QString title;            ///< of the range message
    std::int32_t minimum = 0; ///< lowest value of the spinner and of a typed entry
    std::int32_t maximum = 0; ///< highest value of both
    bool lowerBound = true;   ///< false: a typed entry is only held against the maximum

    /// What a valid typed entry does: its text exactly as typed, its value rounded half to even.
    /// It is called twice for every entry, as leaving a field checks it twice.
    std::function<void(const QString& text, std::int32_t value)> store;
    /// What a step of the spinner does. The text already shows the new value.
    std::function<void(const QString& text, std::int32_t value)> step;

    std::function<void()> entering;     ///< before the field is entered; may reload the text
    std::function<EntryRange()> limits; ///< the limits of this moment; asked before they count
    std::function<bool()> checkAgain;   ///< whether the second check takes place; always if empty
    std::function<bool()> mayStep;      ///< whether a step counts; always if empty
    std::function<void()> enterKey;     ///< instead of the move to the next control
    std::function<void()> escapeKey;    ///< besides the undo
};

/// A number that belongs to the controller: typed, or stepped by 1 with the arrows. While the user
/// is editing it, refreshes leave it alone; Enter moves on as Tab does; Escape undoes, twice it
/// also ends the editing. Leaving checks the entry against the limits. A refused one is undone,
/// keeps the focus and shows one box. Going to a menu or to another window is not leaving. The
/// wheel and the page keys change nothing: a value of the press is not changed in passing.
class NumericEntryField : public QAbstractSpinBox
{
    Q_OBJECT

public:
    /// `focusSink` gets the focus when an edit ends without a move to another control.
    NumericEntryField(Operator& prompts, QWidget& focusSink, EntryRules rules);

    /// The control names of the text box, which the widget carries, and of its spinner.
    void setNames(const QString& textBox, const QString& spinner);

    /// Makes the caption label of this field: its access key leads here, and its text, without
    /// key mark and colon, is what an accessibility tool reads out.
    QLabel* makeCaption(const QString& name, const QString& caption);

    QString text() const;
    /// The number that the text begins with, rounded half to even; 0 when it begins with none.
    std::int32_t value() const;
    /// What Escape brings back: the value when the field was entered, or last shown.
    std::int32_t undoValue() const { return m_undo; }
    /// The last whole number shown or stored, whatever has been typed since.
    std::int32_t lastValid() const { return m_lastValid; }

    std::int32_t minimum() const { return m_rules.minimum; }
    std::int32_t maximum() const { return m_rules.maximum; }
    void setRange(const EntryRange& range);

    /// A refresh: shows `text` unless the user is editing the field.
    void showValue(const QString& text);
    /// Shows `text` whatever is going on.
    void setText(const QString& text);

    bool beingEdited() const { return m_state != State::Shown; }
    /// Drops the edit: what was typed is undone, nothing is checked or stored, and the next
    /// refresh shows its value.
    void endEditing();
    /// Checks and stores what has been typed, as leaving does. False when it was refused.
    bool finishEditing();
    /// Checks the text once, and stores or refuses it.
    void commit();
    /// Moves on to the next control, as the Tab key does.
    void moveOn() { focusNextChild(); }

    /// The arrows beside the field: one step up or down, then the focus goes to the sink.
    void stepBy(int steps) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    StepEnabled stepEnabled() const override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void enter();
    void leave();
    void focusMoved(const QWidget* now);
    EntryRange limitsNow() const;
    bool check();
    bool valid() const;
    void refuse();
    void showRefusal();
    void takeFocus();
    bool anotherRefused() const;
    void enterPressed();
    void escapePressed();
    void arrowPressed(const QKeyEvent& event);
    std::optional<std::int32_t> stepFrom() const;
    bool step(int direction, bool giveFocusAway);
    void write(const QString& text);

    struct Parsed
    {
        QString text;
        std::int32_t value = 0;
        bool isWhole = false;
    };
    const Parsed& parsed(const QString& text) const;

    enum class State {
        Shown,       ///< refreshes show their values
        Edited,      ///< entered or typed into: refreshes keep off
        EscapeArmed, ///< edited, and the next Escape ends it
        Refused      ///< an entry was refused and its box has not been closed yet
    };

    Operator& m_prompts;
    QWidget& m_focusSink;
    EntryRules m_rules;
    State m_state = State::Shown;
    mutable Parsed m_parsed; ///< the last text that was parsed
    std::int32_t m_undo = 0;
    std::int32_t m_lastValid = 0;
    bool m_here = false;       ///< entered and not left: a visit to a menu is no leave
    bool m_arrowHeld = false;  ///< a step by mouse: goes on repeating without the focus
    QBasicTimer m_untilServed; ///< runs until all input that came during a step has been served
};

} // namespace tambrix
