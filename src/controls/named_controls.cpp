#include "controls/named_controls.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

namespace tambrix {

QString arrayName(const char* name, int index)
{
    return QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(index);
}

QString spokenText(const QString& caption)
{
    QString spoken = caption;
    spoken.remove(u'&');
    if (spoken.endsWith(u':'))
        spoken.chop(1);
    return spoken;
}

QGroupBox* makeFrame(const QString& name, const QString& caption)
{
    auto* group = new QGroupBox(caption);
    group->setObjectName(name);
    return group;
}

QLabel* makeLabel(const QString& name, const QString& text)
{
    auto* label = new QLabel(text);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QLabel* makeDimLabel(const QString& text)
{
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setForegroundRole(QPalette::PlaceholderText);
    return label;
}

QPushButton* makeButton(const QString& name, const QString& caption)
{
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    button->setAccessibleName(spokenText(caption));
    button->setAutoDefault(false);
    return button;
}

} // namespace tambrix
