#include <QApplication>
#include <QMainWindow>

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    QMainWindow window;
    window.setWindowTitle(QStringLiteral("Bare window"));
    window.show();
    return QApplication::exec();
}
