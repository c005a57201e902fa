#include <QApplication>
#include <QMainWindow>
#include <QPixmap>

// The least that a program with a window can do: show it, paint it once into a picture, end.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    QMainWindow window;
    window.resize(1280, 800);
    window.show();
    return argc > 1 && window.grab().save(QString::fromLocal8Bit(argv[1])) ? 0 : 1;
}
