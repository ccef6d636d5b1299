#include "screens/first_steps.h"

#include "controls/named_controls.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tambrix {

FirstSteps::FirstSteps()
{
    setTitle(QStringLiteral("First steps"));
    setObjectName(QStringLiteral("fraFirstSteps"));
    QLabel* text = makeLabel(
        QStringLiteral("lblFirstSteps"),
        QStringLiteral("No controller has answered yet. Connect the cable, choose its port, then "
                       "go on line with the button at the upper left."));
    text->setWordWrap(true);
    QPushButton* port =
        makeButton(QStringLiteral("cmdChoosePort"), QStringLiteral("Choose a Port..."));
    connect(port, &QPushButton::clicked, this, [this] { trigger("mnuEditCommPort"); });
    QPushButton* look =
        makeButton(QStringLiteral("cmdLookAround"), QStringLiteral("Look Around, Simulated..."));
    connect(look, &QPushButton::clicked, this, [this] { trigger("mnuToolsSimulated"); });
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(port);
    buttons->addWidget(look);
    buttons->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addLayout(buttons);
}

void FirstSteps::trigger(const char* menuItem)
{
    if (auto* action = window()->findChild<QAction*>(QLatin1String(menuItem)))
        action->trigger();
}

} // namespace tambrix
