#include "controls/numeric_entry_field.h"

#include "controls/forms.h"
#include "controls/typed_number.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPointer>
#include <QStyleOptionSpinBox>
#include <QTimer>

#include <algorithm>

namespace tambrix {

namespace {

const QString kWidestEntry = QStringLiteral("0000000"); // room for what is typed wrongly, too
constexpr int kPageStep = 10;

/// Whether focus that goes or comes for this reason is only on a visit elsewhere.
bool isVisit(Qt::FocusReason reason)
{
    return reason == Qt::MenuBarFocusReason || reason == Qt::PopupFocusReason ||
           reason == Qt::ActiveWindowFocusReason;
}

std::int32_t bounded(std::int64_t value, std::int32_t low, std::int32_t high)
{
    return static_cast<std::int32_t>(
        std::max<std::int64_t>(std::min<std::int64_t>(value, high), low));
}

} // namespace

NumericEntryField::NumericEntryField(Operator& prompts, QWidget& focusSink, EntryRules rules)
    : m_prompts(prompts), m_focusSink(focusSink), m_rules(std::move(rules))
{
    setFocusPolicy(Qt::StrongFocus);
    setAlignment(Qt::AlignRight);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    lineEdit()->installEventFilter(this);
    connect(lineEdit(), &QLineEdit::textEdited, this, [this] { m_beingEdited = true; });
    connect(lineEdit(), &QLineEdit::textChanged, this, [this] { update(); });
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* now) { focusMoved(now); });
}

void NumericEntryField::setNames(const QString& textBox, const QString& spinner)
{
    setObjectName(textBox);
    setProperty("spinnerName", spinner);
}

QLabel* NumericEntryField::makeCaption(const QString& name, const QString& caption)
{
    auto* label = new QLabel(caption);
    label->setObjectName(name);
    label->setBuddy(this);
    QString spoken = caption;
    spoken.remove(u'&');
    if (spoken.endsWith(u':'))
        spoken.chop(1);
    setAccessibleName(spoken);
    return label;
}

QString NumericEntryField::text() const
{
    return lineEdit()->text();
}

std::int32_t NumericEntryField::value() const
{
    return roundedHalfToEven(leadingNumber(text()));
}

void NumericEntryField::setRange(std::int32_t minimum, std::int32_t maximum)
{
    m_rules.minimum = minimum;
    m_rules.maximum = maximum;
    update();
}

void NumericEntryField::showValue(const QString& text)
{
    const bool nothingYet = this->text().isEmpty() && !lineEdit()->isModified();
    if (m_beingEdited && !nothingYet)
        return;
    write(text);
    m_undo = value();
}

void NumericEntryField::setText(const QString& text)
{
    write(text);
    if (!m_beingEdited)
        m_undo = value();
}

/// A text that is the same stays untouched, so that no refresh moves the cursor.
void NumericEntryField::write(const QString& text)
{
    if (lineEdit()->text() == text)
        return;
    lineEdit()->setText(text);
    if (hasFocus())
        SelectAllText(*lineEdit());
}

void NumericEntryField::endEditing()
{
    m_beingEdited = false;
    m_escapeArmed = false;
    m_refused = false;
}

bool NumericEntryField::finishEditing()
{
    if (m_beingEdited && !m_refused)
        leave();
    return !m_refused;
}

// --- Coming and going ---

void NumericEntryField::enter()
{
    if (m_rules.entering)
        m_rules.entering();
    m_here = true;
    m_beingEdited = true;
    m_escapeArmed = false;
    m_undo = value();
    SelectAllText(*lineEdit());
}

void NumericEntryField::focusInEvent(QFocusEvent* event)
{
    QAbstractSpinBox::focusInEvent(event);
    const bool back = m_refused || (m_here && isVisit(event->reason()));
    if (back)
        m_here = true;
    else
        enter();
}

void NumericEntryField::focusOutEvent(QFocusEvent* event)
{
    if (m_arrowHeld) // the base class would end the repetition of the held arrow
        lineEdit()->event(event);
    else
        QAbstractSpinBox::focusOutEvent(event);
    if (isVisit(event->reason()))
        return;
    m_here = false;
    leave();
}

/// A visit to the menu bar may end on another control without another word to this one.
void NumericEntryField::focusMoved(const QWidget* now)
{
    const bool elsewhere = now != nullptr && now != this && now->window() == window() &&
                           qobject_cast<const QMenuBar*>(now) == nullptr;
    if (!m_here || !elsewhere)
        return;
    m_here = false;
    leave();
}

/// The check runs twice, as the controller's users know it: a valid entry is written twice.
void NumericEntryField::leave()
{
    if (m_refused) {
        takeFocus();
        return;
    }
    if (!m_beingEdited)
        return;
    if (!check())
        refuse();
    else if (!m_rules.checkAgain || m_rules.checkAgain())
        commit();
}

/// A click in the field enters it anew, also where it has the focus already.
bool NumericEntryField::eventFilter(QObject* watched, QEvent* event)
{
    const bool click = event->type() == QEvent::MouseButtonRelease &&
                       static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
    if (click && hasFocus() && !m_refused)
        enter();
    return QAbstractSpinBox::eventFilter(watched, event);
}

// --- Checking ---

bool NumericEntryField::valid() const
{
    const std::optional<double> number = numericText(text());
    return number && *number <= m_rules.maximum &&
           (!m_rules.lowerBound || *number >= m_rules.minimum);
}

bool NumericEntryField::check()
{
    if (m_rules.checking)
        m_rules.checking();
    if (!valid())
        return false;
    const std::int32_t entered = value();
    if (m_rules.store)
        m_rules.store(text(), entered);
    m_undo = entered;
    m_beingEdited = false;
    return true;
}

void NumericEntryField::commit()
{
    if (!check())
        refuse();
}

/// The focus comes back at once, before another control takes it for good; the box waits until
/// the event that moved the focus is over.
void NumericEntryField::refuse()
{
    m_refused = true;
    m_beingEdited = true;
    write(QString::number(m_undo));
    takeFocus();
    QTimer::singleShot(0, this, [this] { showRefusal(); });
}

void NumericEntryField::showRefusal()
{
    if (!m_refused)
        return;
    for (QAbstractButton* pressed : window()->findChildren<QAbstractButton*>())
        pressed->setDown(false); // the click that would leave the field does not count
    const QString text = QStringLiteral("Only a Number Between %1 and %2 can be Entered")
                             .arg(m_rules.minimum)
                             .arg(m_rules.maximum);
    const QPointer<NumericEntryField> self(this);
    m_prompts.showMessage(
        {BoxIcon::Information, BoxButtons::Ok, m_rules.title.toStdString(), text.toStdString()});
    if (self == nullptr || !m_refused)
        return;
    takeFocus();
    m_refused = false;
}

/// Of two refused fields the later one has the focus; they do not fight for it.
void NumericEntryField::takeFocus()
{
    const auto* other = qobject_cast<NumericEntryField*>(QApplication::focusWidget());
    if (other != nullptr && other != this && other->m_refused) {
        endEditing();
        return;
    }
    if (isEnabled())
        setFocus(Qt::OtherFocusReason);
    SelectAllText(*lineEdit());
}

// --- Keys ---

void NumericEntryField::keyPressEvent(QKeyEvent* event)
{
    event->accept();
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return enterPressed();
    case Qt::Key_Escape:
        return escapePressed();
    case Qt::Key_Up:
        return stepKeepingFocus(1);
    case Qt::Key_Down:
        return stepKeepingFocus(-1);
    case Qt::Key_PageUp:
        return stepKeepingFocus(kPageStep);
    case Qt::Key_PageDown:
        return stepKeepingFocus(-kPageStep);
    default:
        m_escapeArmed = false;
        QAbstractSpinBox::keyPressEvent(event);
    }
}

void NumericEntryField::enterPressed()
{
    m_escapeArmed = false;
    if (m_rules.enterKey)
        m_rules.enterKey();
    else
        moveOn();
}

void NumericEntryField::escapePressed()
{
    if (m_rules.escapeKey)
        m_rules.escapeKey();
    write(QString::number(m_undo));
    m_escapeArmed = !m_escapeArmed;
    if (m_escapeArmed) {
        SelectAllText(*lineEdit());
        return;
    }
    endEditing();
    m_focusSink.setFocus();
}

// --- The spinner ---

NumericEntryField::StepEnabled NumericEntryField::stepEnabled() const
{
    StepEnabled steps = StepNone;
    if (value() < m_rules.maximum)
        steps |= StepUpEnabled;
    if (value() > m_rules.minimum)
        steps |= StepDownEnabled;
    return steps;
}

/// The focus goes to the sink as if the arrow beside the field had been clicked, unless a key or
/// the wheel made the step: those need the focus for the next one.
void NumericEntryField::stepBy(int steps)
{
    const std::int32_t stepped =
        bounded(std::int64_t{value()} + steps, m_rules.minimum, m_rules.maximum);
    const QString text = QString::number(stepped);
    if (text == this->text())
        return;
    endEditing();
    write(text);
    if (!m_steppingHere) {
        m_arrowHeld = true;
        m_focusSink.setFocus();
        m_arrowHeld = false;
    }
    if (m_rules.step)
        m_rules.step(text, stepped);
    if (!m_beingEdited)
        m_undo = stepped;
}

void NumericEntryField::stepKeepingFocus(int steps)
{
    m_steppingHere = true;
    stepBy(steps);
    m_steppingHere = false;
}

void NumericEntryField::wheelEvent(QWheelEvent* event)
{
    if (!hasFocus()) { // scrolling past a field must not change the press
        event->ignore();
        return;
    }
    m_steppingHere = true;
    QAbstractSpinBox::wheelEvent(event);
    m_steppingHere = false;
}

/// The held arrow's repetition. A window that opens meanwhile swallows the release of the mouse.
void NumericEntryField::timerEvent(QTimerEvent* event)
{
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

QSize NumericEntryField::sizeHint() const
{
    ensurePolished();
    QStyleOptionSpinBox option;
    initStyleOption(&option);
    const QSize content(fontMetrics().horizontalAdvance(kWidestEntry) + 8,
                        lineEdit()->sizeHint().height());
    return style()->sizeFromContents(QStyle::CT_SpinBox, &option, content, this);
}

} // namespace tambrix
