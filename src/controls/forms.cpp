#include "controls/forms.h"

#include <QLineEdit>
#include <QScreen>

namespace tambrix {

void CenterForm(QWidget& dialog)
{
    if (!dialog.testAttribute(Qt::WA_Resized)) // its size is still the window system's guess
        dialog.adjustSize();
    const QRect desktop = dialog.screen()->availableGeometry();
    QRect frame = dialog.frameGeometry();
    frame.moveCenter(desktop.center());
    dialog.move(frame.topLeft());
}

void resizeInto(QWidget& window, const QSize& wanted)
{
    constexpr QSize kFrame(16, 40); // about what the desktop puts around a window
    window.resize(wanted.boundedTo(window.screen()->availableGeometry().size() - kFrame));
}

void SelectAllText(QLineEdit& field)
{
    field.setSelection(0, static_cast<int>(field.text().length()));
}

} // namespace tambrix
