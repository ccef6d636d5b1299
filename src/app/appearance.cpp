#include "app/appearance.h"

#include "controls/calm_style.h"
#include "controls/palettes.h"
#include "controls/plain_texts.h"

#include <QApplication>
#include <QIcon>
#include <QSettings>
#include <QStyleHints>

#ifdef Q_OS_WIN
#include "app/frame_tone.h"
#endif

#ifdef TAMBRIX_ASK_DESKTOP
#include <QDBusInterface>
#include <QDBusReply>
#include <QDBusVariant>
#endif

namespace tambrix {

namespace {

constexpr int kIconSizes[] = {16, 24, 32, 48, 64, 128, 256};

QIcon programIcon()
{
    QIcon icon;
    for (const int size : kIconSizes)
        icon.addFile(QStringLiteral(":/tambrix/tambrix-%1.png").arg(size));
    return icon;
}

#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)

bool desktopPrefersDark()
{
    return QGuiApplication::styleHints()->colorScheme() == Qt::ColorScheme::Dark;
}

#elif defined(TAMBRIX_ASK_DESKTOP)

/// Qt learnt to follow the desktop's choice of light or dark after 6.4; until then it is asked.
bool desktopPrefersDark()
{
    constexpr int kLongestWait = 200; // ms; a desktop without that service answers at once
    constexpr uint kDark = 1;
    QDBusInterface settings(QStringLiteral("org.freedesktop.portal.Desktop"),
                            QStringLiteral("/org/freedesktop/portal/desktop"),
                            QStringLiteral("org.freedesktop.portal.Settings"));
    settings.setTimeout(kLongestWait);
    const QDBusReply<QDBusVariant> reply =
        settings.call(QStringLiteral("Read"), QStringLiteral("org.freedesktop.appearance"),
                      QStringLiteral("color-scheme"));
    if (!reply.isValid())
        return false;
    QVariant value = reply.value().variant();
    if (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value.toUInt() == kDark;
}

#elif defined(Q_OS_WIN)

bool desktopPrefersDark()
{
    const QSettings theme(QStringLiteral("HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\"
                                         "CurrentVersion\\Themes\\Personalize"),
                          QSettings::NativeFormat);
    return theme.value(QStringLiteral("AppsUseLightTheme"), 1).toInt() == 0;
}

#else

bool desktopPrefersDark()
{
    return false;
}

#endif

bool wantsDark(Theme theme)
{
    return theme == Theme::Dark || (theme == Theme::Desktop && desktopPrefersDark());
}

} // namespace

void applyAppearance(bool styleAskedFor, Theme theme)
{
    QApplication::setWindowIcon(programIcon());
    new PlainTexts(qApp); // the application owns it
#ifdef Q_OS_WIN
    new FrameTone(*qApp);
#endif
    if (styleAskedFor)
        return;
    QApplication::setStyle(new CalmStyle); // the application owns it
    QApplication::setPalette(wantsDark(theme) ? darkPalette() : lightPalette());
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
    if (theme == Theme::Desktop)
        QObject::connect(QGuiApplication::styleHints(), &QStyleHints::colorSchemeChanged, qApp, [] {
            QApplication::setPalette(desktopPrefersDark() ? darkPalette() : lightPalette());
        });
#endif
}

} // namespace tambrix
