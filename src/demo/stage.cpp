#include "demo/stage.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QTimer>

#include <algorithm>
#include <cstdio>

namespace tambrix {

using namespace std::chrono_literals;

namespace {

constexpr auto kLook = 20ms;             // how often a step looks whether it is there
constexpr int kLooksBeforeFailing = 400; // 8 s
constexpr QSize kOperatorsScreen(1366, 768);

QAbstractButton* buttonOf(const QMessageBox& box, const QString& caption)
{
    const auto buttons = box.buttons();
    const auto found = std::ranges::find_if(buttons, [&](const QAbstractButton* button) {
        return button->text().remove(u'&') == caption;
    });
    return found == buttons.end() ? nullptr : *found;
}

} // namespace

DemoStage::DemoStage(MainWindow& window, BuiltInController& controller, const QDir& pictures)
    : m_window(window), m_controller(controller), m_pictures(pictures), m_loop([] { return true; })
{
}

void DemoStage::run(Task chapters)
{
    m_window.resize(kOperatorsScreen);
    m_chapters = std::move(chapters);
    m_loop.start(wholeRun());
}

Task DemoStage::wholeRun()
{
    co_await m_chapters;
    QApplication::exit(m_failed ? 1 : 0);
}

Task DemoStage::step(QString what, QString picture, std::function<bool()> shown)
{
    for (int look = 0; look < kLooksBeforeFailing && !shown(); ++look)
        co_await m_loop.pause(kLook);
    report(shown(), what, picture);
    if (!picture.isEmpty())
        take(picture);
}

Task DemoStage::goOnline()
{
    m_window.goOnline();
    co_await statusEndsWith("All Faults Normal");
}

Task DemoStage::goOffline()
{
    m_window.goOffline();
    co_await statusEndsWith("OFFLINE");
}

Task DemoStage::statusEndsWith(QString text)
{
    const std::function<bool()> shown = [this, &text] {
        return control<QLabel>("STATUS").text().endsWith(text);
    };
    co_await step({}, {}, shown);
}

void DemoStage::later(std::function<void()> action)
{
    QTimer::singleShot(0, &m_window, std::move(action));
}

void DemoStage::triggerMenu(const QString& name)
{
    later([action = &control<QAction>(name)] { action->trigger(); });
}

Task DemoStage::answerBox(QString title, QString button, QString picture)
{
    const auto box = [this, &title]() -> QMessageBox* {
        auto* front = qobject_cast<QMessageBox*>(&frontWindow());
        return front != nullptr && front->windowTitle() == title ? front : nullptr;
    };
    // Named, not built inside the awaiting expressions: GCC 12 destroys such closures twice.
    const std::function<bool()> open = [box] { return box() != nullptr; };
    const std::function<bool()> closed = [box] { return box() == nullptr; };
    const QString what = QStringLiteral("Box '%1', answered %2").arg(title, button);
    co_await step(what, picture, open);
    if (box() != nullptr && buttonOf(*box(), button) != nullptr)
        later([pressed = buttonOf(*box(), button)] { pressed->click(); });
    else
        report(false, QStringLiteral("button %1").arg(button), picture);
    co_await step({}, {}, closed);
}

QWidget& DemoStage::frontWindow() const
{
    QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr ? *modal : m_window;
}

void DemoStage::take(const QString& picture)
{
    const QString file = m_pictures.filePath(picture + ".png");
    if (!frontWindow().grab().save(file))
        report(false, QStringLiteral("cannot write the picture"), picture);
}

void DemoStage::report(bool ok, const QString& what, const QString& picture)
{
    m_failed = m_failed || !ok;
    if (ok && what.isEmpty())
        return;
    const QString file = picture.isEmpty() ? QString() : QStringLiteral(" -> %1.png").arg(picture);
    std::printf("%s: %s%s\n", ok ? "ok" : "FAILED", qPrintable(what), qPrintable(file));
    std::fflush(stdout);
}

} // namespace tambrix
