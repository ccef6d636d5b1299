#include "shell/screen_place.h"

#include "controls/text_size.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QVBoxLayout>

namespace tambrix {

ScreenPlace::ScreenPlace() : m_title(new QLabel), m_layout(new QVBoxLayout(this))
{
    m_title->setObjectName(QStringLiteral("lblScreenTitle"));
    setTextSize(*m_title, TextSize::Title, true);
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(0);
    m_layout->addWidget(m_title);
    rescale();
}

void ScreenPlace::put(QWidget& screen)
{
    m_layout->addWidget(&screen, 1);
    m_title->setText(screen.windowTitle());
    applyStep(*this, m_step, m_desktop);
    screen.show();
}

void ScreenPlace::take(QWidget& screen)
{
    screen.hide();
    m_layout->removeWidget(&screen);
}

QSize ScreenPlace::minimumSizeHint() const
{
    return layout()->totalMinimumSize() * smallestStep(m_desktop) / m_step;
}

void ScreenPlace::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    rescale();
}

void ScreenPlace::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ApplicationFontChange)
        rescale();
}

void ScreenPlace::rescale()
{
    const QFont desktop = QApplication::font();
    const int step = scaleStep(size(), desktop);
    if (step == m_step && desktop == m_desktop)
        return;
    m_step = step;
    m_desktop = desktop;
    applyStep(*this, m_step, m_desktop);
    const int grid = gridOf(font());
    m_title->setContentsMargins(2 * grid, grid, 2 * grid, 0);
}

} // namespace tambrix
