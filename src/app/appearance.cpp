#include "app/appearance.h"

#include <QApplication>
#include <QIcon>
#include <QProxyStyle>
#include <QSettings>

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

#if defined(TAMBRIX_ASK_DESKTOP)

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

[[maybe_unused]] bool desktopPrefersDark()
{
    return false; // Qt follows the desktop by itself
}

#endif

/// Whether the desktop's own style shows what the user asked of the desktop.
bool nativeStyleFits()
{
#if defined(Q_OS_MACOS)
    return true;
#elif defined(Q_OS_WIN)
    // The style of Windows 10 knows no dark; the one of Windows 11 does.
    const bool lightOnly = QApplication::style()->name() == QLatin1String("windowsvista");
    return !(lightOnly && desktopPrefersDark());
#else
    return false;
#endif
}

/// Fusion, but no dialog button has an icon: the desktop has one for OK and none for our own.
class CalmStyle : public QProxyStyle
{
public:
    CalmStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override
    {
        if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
            return 0;
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
};

constexpr QPalette::ColorRole kTextRoles[] = {QPalette::WindowText, QPalette::Text,
                                              QPalette::ButtonText, QPalette::ToolTipText};

void setDisabledText(QPalette& palette, const QColor& color)
{
    for (const auto role : kTextRoles)
        palette.setColor(QPalette::Disabled, role, color);
}

} // namespace

void applyAppearance(bool styleAskedFor)
{
    QApplication::setWindowIcon(programIcon());
    if (styleAskedFor || nativeStyleFits())
        return;
    QApplication::setStyle(new CalmStyle); // the application owns it
#if QT_VERSION < QT_VERSION_CHECK(6, 5, 0)
    QApplication::setPalette(desktopPrefersDark() ? darkPalette() : lightPalette());
#endif
}

QPalette lightPalette()
{
    QPalette palette = QApplication::style()->standardPalette();
    setDisabledText(palette, QColor(0x8a, 0x8a, 0x8a)); // the style's own hardly shows
    for (const auto group : {QPalette::Active, QPalette::Inactive})
        palette.setColor(group, QPalette::Highlight, QColor(0x28, 0x6f, 0xa8));
    return palette;
}

QPalette darkPalette()
{
    const QColor text(0xe6, 0xe6, 0xe6);
    QPalette palette(QColor(0x40, 0x44, 0x48), QColor(0x32, 0x35, 0x39));
    palette.setColor(QPalette::Base, QColor(0x1b, 0x1d, 0x1f));
    palette.setColor(QPalette::AlternateBase, QColor(0x2b, 0x2d, 0x30));
    palette.setColor(QPalette::ToolTipBase, QColor(0x3a, 0x3d, 0x41));
    palette.setColor(QPalette::Highlight, QColor(0x28, 0x62, 0xa4));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0x46, 0x4a, 0x4f));
    palette.setColor(QPalette::HighlightedText, text);
    palette.setColor(QPalette::Link, QColor(0x6c, 0xb0, 0xf0));
    palette.setColor(QPalette::PlaceholderText, QColor(0x90, 0x90, 0x90));
    for (const auto role : kTextRoles)
        palette.setColor(role, text);
    setDisabledText(palette, QColor(0x96, 0x96, 0x96));
    return palette;
}

} // namespace tambrix
