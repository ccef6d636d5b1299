#include "help/help_desk.h"

#include "help/about_box.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QKeyEvent>
#include <QMenu>
#include <QMessageBox>

namespace tambrix {

namespace {

constexpr const char* kTopicProperty = "helpTopic";

/// Names to look a widget up by, the most telling one first.
QStringList namesOf(const QWidget& widget)
{
    QStringList names = {widget.property(kTopicProperty).toString(), widget.objectName()};
    if (const auto* menu = qobject_cast<const QMenu*>(&widget); menu && menu->activeAction())
        names.prepend(menu->activeAction()->objectName());
    if (qobject_cast<const QMessageBox*>(&widget) != nullptr)
        names.append(boxAnchor(widget.windowTitle()));
    names.removeAll(QString());
    return names;
}

const QWidget* widgetInFront()
{
    for (const QWidget* widget : {QApplication::activePopupWidget(), QApplication::focusWidget(),
                                  QApplication::activeModalWidget()}) {
        if (widget != nullptr)
            return widget;
    }
    return QApplication::activeWindow();
}

} // namespace

HelpDesk::HelpDesk(ProgramState& state) : m_state(state)
{
    qApp->installEventFilter(this);
}

HelpDesk::~HelpDesk()
{
    delete m_window;
    delete m_missing;
}

const HelpBook& HelpDesk::book()
{
    if (!m_book)
        m_book.emplace(m_state.helpFile);
    return *m_book;
}

/// Windows use the same names for their controls: "cmdOk" is looked up as "frmLabelRange.cmdOk".
QUrl HelpDesk::topicOf(const QWidget* widget)
{
    QStringList inside;
    for (; widget != nullptr; widget = widget->parentWidget()) {
        const QStringList names = namesOf(*widget);
        QStringList candidates;
        for (const QString& name : names) {
            for (const QString& control : inside)
                candidates.append(name + u'.' + control);
        }
        for (const QString& name : candidates + names) {
            if (const QUrl topic = book().topicOf(name); !topic.isEmpty())
                return topic;
        }
        inside += names;
    }
    return {};
}

void HelpDesk::showPage(const QUrl& url)
{
    if (!book().isEmpty()) {
        window().showTopic(url);
        return;
    }
    m_book.reset(); // the file may be put there before the next question
    sayMissing();
}

/// Not a modal box: F1 is pressed during a transfer too, which would stand still under one.
void HelpDesk::sayMissing()
{
    delete m_missing;
    QWidget* modal = QApplication::activeModalWidget();
    m_missing =
        new QMessageBox(QMessageBox::Information, QStringLiteral("Help Topics"),
                        QStringLiteral("The help file was not found:\n") +
                            QDir::toNativeSeparators(m_state.helpFile),
                        QMessageBox::Ok, modal != nullptr ? modal : QApplication::activeWindow());
    m_missing->setAttribute(Qt::WA_DeleteOnClose);
    m_missing->setModal(false);
    m_missing->show();
}

/// A modal window lets no other window of the program be used except its own: over one, help is a
/// window of that dialog and goes with it.
HelpWindow& HelpDesk::window()
{
    if (QWidget* modal = QApplication::activeModalWidget()) {
        auto* own = modal->findChild<HelpWindow*>();
        return own != nullptr ? *own : *new HelpWindow(book(), modal);
    }
    if (!m_window)
        m_window = new HelpWindow(book());
    return *m_window;
}

void HelpDesk::showAbout()
{
    AboutBox(m_state, QApplication::activeWindow()).exec();
}

bool HelpDesk::eventFilter(QObject* watched, QEvent* event)
{
    const bool press = event->type() == QEvent::KeyPress;
    if (!press && event->type() != QEvent::ShortcutOverride)
        return QObject::eventFilter(watched, event);
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (key.key() != Qt::Key_F1 || key.modifiers() != Qt::NoModifier)
        return QObject::eventFilter(watched, event);
    event->accept(); // not the menu's shortcut, which would open the contents
    if (press)
        showTopicOf(widgetInFront());
    return true;
}

} // namespace tambrix
