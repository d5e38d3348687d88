#include <QApplication>
#include <QListWidget>
#include <QMainWindow>

// The least that a Qt program with a list in its window can do.
int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QMainWindow window;
    window.setCentralWidget(new QListWidget);
    window.resize(900, 640);
    window.show();
    return QApplication::exec();
}
