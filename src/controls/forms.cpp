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

void SelectAllText(QLineEdit& field)
{
    field.setSelection(0, static_cast<int>(field.text().length()));
}

} // namespace tambrix
