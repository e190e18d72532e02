// The least that a program with a window can be: the floor of the cold start.

#include <QApplication>
#include <QMainWindow>

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QMainWindow window;
    window.resize(1200, 800);
    window.show();
    return QApplication::exec();
}
