// How the arrows of an entry field step, by key and by mouse.

#include "controls/numeric_entry_field.h"

#include "data/typed_number.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace tambrix {

namespace {

bool isOutside(double value, const EntryRange& range)
{
    return value < range.minimum || value > range.maximum;
}

} // namespace

/// A held key repeats faster than a slow line takes its steps. What has piled up meanwhile would
/// go on stepping after the key is let go, so repetitions that came during a step are dropped: a
/// timer of 0 ms ends once the window system's queue has been served.
void NumericEntryField::arrowPressed(const QKeyEvent& event)
{
    if (event.isAutoRepeat() && m_untilServed.isActive())
        return;
    if (step(event.key() == Qt::Key_Up ? 1 : -1, false))
        m_untilServed.start(0, this);
}

/// The value that a step starts from; none if it lies outside its limits.
std::optional<std::int32_t> NumericEntryField::stepFrom() const
{
    const double from = isWholeNumber(text()) ? leadingNumber(text()) : m_lastValid;
    if (isOutside(from, limitsNow()))
        return std::nullopt;
    return static_cast<std::int32_t>(from);
}

/// Both arrows of a value outside its limits answer, with the range message.
NumericEntryField::StepEnabled NumericEntryField::stepEnabled() const
{
    const auto from = stepFrom();
    const EntryRange limits = limitsNow();
    StepEnabled steps = StepNone;
    steps.setFlag(StepUpEnabled, !from || *from < limits.maximum);
    steps.setFlag(StepDownEnabled, !from || *from > limits.minimum);
    return steps;
}

void NumericEntryField::stepBy(int steps)
{
    step(steps > 0 ? 1 : -1, true);
}

/// A key needs the focus for its next step; an arrow that was clicked gives it to the sink.
/// kept: by 1 and never more, and not into the limits from outside. A step writes at once, and
/// its user expects the next value, not a jump of the press. True if the value has changed.
bool NumericEntryField::step(int direction, bool giveFocusAway)
{
    if (m_state == State::Refused || anotherRefused() || (m_rules.mayStep && !m_rules.mayStep()))
        return false;
    setRange(limitsNow());
    const auto from = stepFrom();
    if (!from) {
        refuse();
        return false;
    }
    const std::int32_t stepped = *from + direction;
    if (isOutside(stepped, {minimum(), maximum()}))
        return false;
    m_state = State::Shown;
    write(QString::number(stepped));
    if (giveFocusAway) {
        m_arrowHeld = true;
        m_focusSink.setFocus();
        m_arrowHeld = false;
    }
    if (m_rules.step)
        m_rules.step(text(), stepped);
    if (!beingEdited())
        m_undo = stepped;
    return true;
}

/// kept: not even with the focus. The wheel turns too easily for a value that is written at once.
void NumericEntryField::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

/// The held arrow's repetition. A window that opens meanwhile swallows the release of the mouse.
void NumericEntryField::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_untilServed.timerId())
        return m_untilServed.stop();
    const QWidget* modal = QApplication::activeModalWidget();
    const bool held = (QApplication::mouseButtons() & Qt::LeftButton) != 0 &&
                      (modal == nullptr || modal == window());
    if (held) {
        QAbstractSpinBox::timerEvent(event);
        return;
    }
    QFocusEvent let(QEvent::FocusOut);
    QAbstractSpinBox::focusOutEvent(&let);
}

} // namespace tambrix
