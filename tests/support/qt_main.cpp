#include <QApplication>
#include <QFontDatabase>
#include <QLocale>

#include <gtest/gtest.h>

namespace {

/// On Windows the off-screen platform knows no font: the system's, or the one that Wine is given.
void useSystemFont()
{
#ifdef Q_OS_WIN
    for (const char* file : {"segoeui.ttf", "DejaVuSans.ttf"}) {
        const int font =
            QFontDatabase::addApplicationFont(QStringLiteral("C:/Windows/Fonts/") + file);
        if (font >= 0)
            return QApplication::setFont(
                QFont(QFontDatabase::applicationFontFamilies(font).value(0), 9));
    }
#endif
}

} // namespace

int main(int argc, char* argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    useSystemFont();
    QLocale::setDefault(QLocale::c());
    return RUN_ALL_TESTS();
}
