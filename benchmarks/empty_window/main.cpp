#include <QApplication>
#include <QMainWindow>

/// The least that a program with a window can be: nothing in it, not even a word. It is as large as that of ZentilConf
/// when it comes first.
int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QMainWindow window;
    window.resize(433, 433);
    window.show();
    return QApplication::exec();
}
