#include "controls/numeric_entry_field.h"

#include "controls/accessible_entry.h"

#include "controls/forms.h"
#include "controls/named_controls.h"
#include "data/typed_number.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPointer>
#include <QStyleOptionSpinBox>
#include <QTimer>

namespace tambrix {

namespace {

const QString kWidestEntry = QStringLiteral("0000000"); // room for what is typed wrongly, too

/// Whether focus that goes or comes for this reason is only on a visit elsewhere.
bool isVisit(Qt::FocusReason reason)
{
    return reason == Qt::MenuBarFocusReason || reason == Qt::PopupFocusReason ||
           reason == Qt::ActiveWindowFocusReason;
}

} // namespace

NumericEntryField::NumericEntryField(Operator& prompts, QWidget& focusSink, EntryRules rules)
    : m_prompts(prompts), m_focusSink(focusSink), m_rules(std::move(rules))
{
    makeEntriesAccessible();
    setFocusPolicy(Qt::StrongFocus);
    setAlignment(Qt::AlignRight);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    lineEdit()->setObjectName(QStringLiteral("qt_entry_lineedit")); // Qt's own name hides its text
    lineEdit()->installEventFilter(this);
    connect(lineEdit(), &QLineEdit::textEdited, this, [this] {
        if (m_state != State::Refused)
            m_state = State::Edited;
    });
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
    setAccessibleName(spokenText(caption));
    return label;
}

QString NumericEntryField::text() const
{
    return lineEdit()->text();
}

std::int32_t NumericEntryField::value() const
{
    return parsed(text()).value;
}

/// A refresh shows the same text again and again.
const NumericEntryField::Parsed& NumericEntryField::parsed(const QString& text) const
{
    if (text != m_parsed.text)
        m_parsed = {text, roundedHalfToEven(leadingNumber(text)), isWholeNumber(text)};
    return m_parsed;
}

void NumericEntryField::setRange(const EntryRange& range)
{
    m_rules.minimum = range.minimum;
    m_rules.maximum = range.maximum;
    update();
}

void NumericEntryField::showValue(const QString& text)
{
    const bool nothingYet = this->text().isEmpty() && !lineEdit()->isModified();
    if (beingEdited() && !nothingYet)
        return;
    write(text);
    m_undo = value();
}

void NumericEntryField::setText(const QString& text)
{
    write(text);
    if (!beingEdited())
        m_undo = value();
}

/// A text that is the same stays untouched, so that no refresh moves the cursor.
void NumericEntryField::write(const QString& text)
{
    if (const Parsed& number = parsed(text); number.isWhole)
        m_lastValid = number.value;
    if (lineEdit()->text() == text)
        return;
    lineEdit()->setText(text);
    if (hasFocus())
        SelectAllText(*lineEdit());
}

void NumericEntryField::endEditing()
{
    if (beingEdited() && lineEdit()->isModified())
        write(QString::number(m_undo));
    m_state = State::Shown;
}

bool NumericEntryField::finishEditing()
{
    if (m_state != State::Refused)
        leave();
    return m_state != State::Refused;
}

// --- Coming and going ---

void NumericEntryField::enter()
{
    if (m_rules.entering)
        m_rules.entering();
    m_here = true;
    m_state = State::Edited;
    m_undo = value();
    SelectAllText(*lineEdit());
}

void NumericEntryField::focusInEvent(QFocusEvent* event)
{
    QAbstractSpinBox::focusInEvent(event);
    const bool back = m_state == State::Refused || (m_here && isVisit(event->reason()));
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

/// kept: the check runs twice, so that a valid entry is written twice; a write that the line has
/// spoilt is mended by the second one.
void NumericEntryField::leave()
{
    if (m_state == State::Refused)
        return takeFocus();
    if (m_state == State::Shown)
        return;
    if (!check())
        refuse();
    else if (!m_rules.checkAgain || m_rules.checkAgain())
        commit();
}

/// Undo and redo belong to the text while it is being changed, else to the window's own commands.
bool NumericEntryField::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && !lineEdit()->isModified()) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo))
            return false;
    }
    return QAbstractSpinBox::event(event);
}

/// A click in the field enters it anew, also where it has the focus already.
bool NumericEntryField::eventFilter(QObject* watched, QEvent* event)
{
    const bool click = event->type() == QEvent::MouseButtonRelease &&
                       static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
    if (click && hasFocus() && m_state != State::Refused)
        enter();
    return QAbstractSpinBox::eventFilter(watched, event);
}

// --- Checking ---

EntryRange NumericEntryField::limitsNow() const
{
    return m_rules.limits ? m_rules.limits() : EntryRange{m_rules.minimum, m_rules.maximum};
}

bool NumericEntryField::valid() const
{
    const std::optional<double> number = numericText(text());
    return number && *number <= m_rules.maximum &&
           (!m_rules.lowerBound || *number >= m_rules.minimum);
}

bool NumericEntryField::check()
{
    setRange(limitsNow());
    if (!valid())
        return false;
    const std::int32_t entered = value();
    if (m_rules.store)
        m_rules.store(text(), entered);
    m_undo = entered;
    m_lastValid = entered;
    m_state = State::Shown;
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
    m_state = State::Refused;
    write(QString::number(m_undo));
    takeFocus();
    QTimer::singleShot(0, this, [this] { showRefusal(); });
}

void NumericEntryField::showRefusal()
{
    if (m_state != State::Refused)
        return;
    for (QAbstractButton* pressed : window()->findChildren<QAbstractButton*>())
        pressed->setDown(false); // the click that would leave the field does not count
    const QString text = QStringLiteral("Only a Number Between %1 and %2 can be Entered")
                             .arg(m_rules.minimum)
                             .arg(m_rules.maximum);
    const QPointer<NumericEntryField> self(this);
    m_prompts.showMessage(
        {BoxIcon::Information, BoxButtons::Ok, m_rules.title.toStdString(), text.toStdString()});
    if (self == nullptr || m_state != State::Refused)
        return;
    takeFocus();
    if (m_state == State::Refused)
        m_state = State::Edited;
}

bool NumericEntryField::anotherRefused() const
{
    const auto* other = qobject_cast<NumericEntryField*>(QApplication::focusWidget());
    return other != nullptr && other != this && other->m_state == State::Refused;
}

/// Of two refused fields the later one has the focus; they do not fight for it.
void NumericEntryField::takeFocus()
{
    if (anotherRefused())
        return endEditing();
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
    case Qt::Key_Down:
        return arrowPressed(*event);
    case Qt::Key_PageUp: // the base class would step by 10
    case Qt::Key_PageDown:
        return event->ignore();
    default:
        if (m_state == State::EscapeArmed)
            m_state = State::Edited;
        QAbstractSpinBox::keyPressEvent(event);
    }
}

void NumericEntryField::enterPressed()
{
    if (m_state == State::EscapeArmed)
        m_state = State::Edited;
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
    if (m_state == State::Edited) {
        m_state = State::EscapeArmed;
        SelectAllText(*lineEdit());
        return;
    }
    m_state = State::Shown;
    m_focusSink.setFocus();
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
