#pragma once

#include "link/operator.h"

#include <QAbstractSpinBox>

#include <cstdint>
#include <functional>

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

    std::function<void()> entering;   ///< before the field is entered; may reload the text
    std::function<void()> checking;   ///< before an entry is checked; may move the limits
    std::function<bool()> checkAgain; ///< whether the second check takes place; always if empty
    std::function<void()> enterKey;   ///< instead of the move to the next control
    std::function<void()> escapeKey;  ///< besides the undo
};

/// A number that belongs to the controller: typed, or stepped by the arrows. While a person is
/// editing it, refreshes leave it alone; Enter moves on as Tab does; Escape undoes, twice it also
/// ends the editing. Leaving checks the entry against the limits. A refused one is undone, keeps
/// the focus and shows one box. Going to a menu or to another window is not leaving.
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

    std::int32_t minimum() const { return m_rules.minimum; }
    std::int32_t maximum() const { return m_rules.maximum; }
    void setRange(std::int32_t minimum, std::int32_t maximum);

    /// A refresh: shows `text` unless a person is editing the field.
    void showValue(const QString& text);
    /// Shows `text` whatever is going on.
    void setText(const QString& text);

    bool beingEdited() const { return m_beingEdited; }
    /// Forgets the edit: nothing is checked or stored, and the next refresh shows its value.
    void endEditing();
    /// Checks and stores what has been typed, as leaving does. False when it was refused.
    bool finishEditing();
    /// Checks the text once, and stores or refuses it.
    void commit();
    /// Moves on to the next control, as the Tab key does.
    void moveOn() { focusNextChild(); }

    void stepBy(int steps) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
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
    bool check();
    bool valid() const;
    void refuse();
    void showRefusal();
    void takeFocus();
    void enterPressed();
    void escapePressed();
    void stepKeepingFocus(int steps);
    void write(const QString& text);

    Operator& m_prompts;
    QWidget& m_focusSink;
    EntryRules m_rules;
    std::int32_t m_undo = 0;
    bool m_here = false;         ///< entered and not left: a glance at a menu is no leave
    bool m_beingEdited = false;  ///< refreshes keep off
    bool m_escapeArmed = false;  ///< the next Escape ends the editing
    bool m_refused = false;      ///< an entry was refused and its box has not been closed yet
    bool m_steppingHere = false; ///< a step by key or wheel: the focus stays
    bool m_arrowHeld = false;    ///< a step by mouse: goes on repeating without the focus
};

} // namespace tambrix
