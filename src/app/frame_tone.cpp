#include "app/frame_tone.h"

#include <QEvent>
#include <QWidget>

#include <windows.h> // before the header that needs it

#include <dwmapi.h>

namespace tambrix {

namespace {

void paintFrame(const QWidget& window)
{
    constexpr DWORD kUseDarkFrame = 20; // DWMWA_USE_IMMERSIVE_DARK_MODE: not in every kit's header
    constexpr int kMiddleTone = 128;
    const BOOL dark = window.palette().color(QPalette::Window).lightness() < kMiddleTone;
    DwmSetWindowAttribute(reinterpret_cast<HWND>(window.winId()), kUseDarkFrame, &dark,
                          sizeof(dark));
}

} // namespace

FrameTone::FrameTone(QObject& application) : QObject(&application)
{
    application.installEventFilter(this);
}

bool FrameTone::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show || event->type() == QEvent::PaletteChange) {
        const auto* window = qobject_cast<const QWidget*>(watched);
        if (window && window->isWindow() && window->testAttribute(Qt::WA_WState_Created))
            paintFrame(*window);
    }
    return false;
}

} // namespace tambrix
