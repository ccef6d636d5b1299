#include "demo/stage.h"

#include "controls/cut_texts.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace tambrix {

using namespace std::chrono_literals;

namespace {

constexpr auto kLook = 20ms;              // how often a step looks whether it is there
constexpr int kLooksBeforeFailing = 1500; // 30 s: the machine may be busy
constexpr auto kLongestSilence = 9s;      // a box inside a turn lets no step look any more

// Conditions that hold a text are named before they are awaited: GCC 12 destroys a closure twice
// that is built inside the awaiting expression.
using Condition = std::function<bool()>;

/// Open or Save, whichever the dialog has.
QAbstractButton* acceptingButton(const QDialogButtonBox& box)
{
    const auto buttons = box.buttons();
    const auto found = std::ranges::find(buttons, QDialogButtonBox::AcceptRole,
                                         [&](auto* button) { return box.buttonRole(button); });
    return found == buttons.end() ? nullptr : *found;
}

QAbstractButton* buttonOf(const QMessageBox& box, const QString& caption)
{
    const auto buttons = box.buttons();
    const auto found = std::ranges::find_if(buttons, [&](const QAbstractButton* button) {
        return button->text().remove(u'&') == caption;
    });
    return found == buttons.end() ? nullptr : *found;
}

void print(const char* result, const QString& what, const QString& picture)
{
    const QString file = picture.isEmpty() ? QString() : QStringLiteral(" -> %1.png").arg(picture);
    std::printf("%s: %s%s\n", result, qPrintable(what), qPrintable(file));
    std::fflush(stdout);
}

} // namespace

DemoStage::DemoStage(MainWindow& window, SimulatedBoard& board, SimulatedLine& line,
                     const QDir& pictures)
    : m_window(window), m_board(board), m_line(line), m_pictures(pictures), m_loop([] {
          return true;
      })
{
    m_watchdog.setSingleShot(true);
    m_watchdog.setInterval(kLongestSilence);
    QObject::connect(&m_watchdog, &QTimer::timeout, [this] {
        fail(QStringLiteral("Nothing goes on behind the window '%1'")
                 .arg(frontWindow().windowTitle()),
             {});
    });
}

void DemoStage::run(Task chapters)
{
    m_window.resize(m_size);
    m_chapters = std::move(chapters);
    m_watchdog.start();
    m_loop.start(wholeRun());
}

Task DemoStage::wholeRun()
{
    co_await m_chapters;
    m_watchdog.stop();
    QApplication::exit(0);
}

Task DemoStage::step(QString what, QString picture, std::function<bool()> shown)
{
    bool there = shown();
    for (int look = 0; look < kLooksBeforeFailing && !there; ++look) {
        m_watchdog.start();
        co_await m_loop.pause(kLook);
        there = shown();
    }
    if (!picture.isEmpty() && !take(picture))
        fail(QStringLiteral("No picture, or one with a cut text"), picture);
    else if (!there)
        fail(what, picture);
    else if (!what.isEmpty())
        print("ok", what, picture);
    if (!m_loop.running())
        co_await m_loop.pendingEvents(); // and never comes back
}

Task DemoStage::waitForWindow(QString name, QString what, QString picture)
{
    const Condition open = [this, &name] { return isInFront(name); };
    co_await step(what, picture, open);
}

Task DemoStage::answerBox(QString title, QString button, QString picture)
{
    const auto box = [this, &title]() -> QMessageBox* {
        auto* front = qobject_cast<QMessageBox*>(&frontWindow());
        return front != nullptr && front->windowTitle() == title ? front : nullptr;
    };
    const Condition open = [&] { return box() != nullptr && buttonOf(*box(), button) != nullptr; };
    const Condition closed = [box] { return box() == nullptr; };
    co_await step(QStringLiteral("Box '%1', answered %2").arg(title, button), picture, open);
    later([pressed = buttonOf(*box(), button)] { pressed->click(); });
    co_await step({}, {}, closed);
}

Task DemoStage::answerFileDialog(QString file, QString what, QString picture)
{
    const auto dialog = [this] { return qobject_cast<QFileDialog*>(&frontWindow()); };
    const Condition open = [dialog] { return dialog() != nullptr; };
    const Condition closed = [dialog] { return dialog() == nullptr; };
    co_await step({}, {}, open);
    control<QLineEdit>(QStringLiteral("fileNameEdit")).setText(file);
    co_await step(what, picture, open);
    const auto& buttons = control<QDialogButtonBox>(QStringLiteral("buttonBox"));
    later([pressed = acceptingButton(buttons)] { pressed->click(); });
    co_await step({}, {}, closed);
}

Task DemoStage::leaveBy(QString button)
{
    const QString left = frontWindow().objectName();
    const Condition gone = [this, &left] { return !isInFront(left); };
    press(button);
    co_await step({}, {}, gone);
}

Task DemoStage::goOnline()
{
    later([this] { m_window.goOnline(); });
    co_await statusEndsWith(QStringLiteral("All Faults Normal"));
}

Task DemoStage::goOffline()
{
    later([this] { m_window.goOffline(); });
    co_await statusEndsWith(QStringLiteral("OFFLINE"));
}

Task DemoStage::statusEndsWith(QString text)
{
    const Condition shown = [this, &text] {
        return control<QLabel>(QStringLiteral("STATUS")).text().endsWith(text);
    };
    co_await step({}, {}, shown);
}

void DemoStage::later(std::function<void()> action)
{
    QTimer::singleShot(0, &m_window, std::move(action));
}

void DemoStage::press(const QString& button)
{
    later([pressed = &control<QAbstractButton>(button)] { pressed->click(); });
}

void DemoStage::triggerMenu(const QString& name)
{
    later([action = &control<QAction>(name)] { action->trigger(); });
}

QWidget& DemoStage::frontWindow() const
{
    if (QWidget* modal = QApplication::activeModalWidget())
        return *modal;
    const auto windows = QApplication::topLevelWidgets();
    const auto shown = [&windows](auto wanted) {
        return std::ranges::find_if(windows, [&wanted](const QWidget* window) {
            const bool isWindow =
                window->windowType() == Qt::Window || window->windowType() == Qt::Dialog;
            return isWindow && window->isVisible() && wanted(*window);
        });
    };
    const auto other = shown([this](const QWidget& window) { return &window != &m_window; });
    if (other == windows.end())
        return m_window;
    const auto above =
        shown([other](const QWidget& window) { return window.parentWidget() == *other; });
    return above == windows.end() ? **other : **above;
}

bool DemoStage::take(const QString& picture) const
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest); // of what has just changed
    const QStringList cut = cutTexts(frontWindow());
    for (const QString& text : cut)
        print("cut", text, picture);
    return frontWindow().grab().save(m_pictures.filePath(picture + QStringLiteral(".png"))) &&
           cut.isEmpty();
}

void DemoStage::fail(const QString& what, const QString& picture)
{
    print("FAILED", what.isEmpty() ? QStringLiteral("a step between two pictures") : what, picture);
    m_watchdog.stop();
    m_loop.stop();
    QApplication::exit(1);
}

void DemoStage::endWithout(const QString& control)
{
    print("FAILED", QStringLiteral("there is no control %1").arg(control), {});
    std::_Exit(1);
}

} // namespace tambrix
