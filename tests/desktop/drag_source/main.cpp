// A window to drag files from, as out of a file manager: its arguments are their paths. It writes
// what becomes of the drag.

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <QWidget>

#include <cstdio>

namespace {

void tell(const char* text) {
    std::puts(text);
    std::fflush(stdout);
}

class Source : public QWidget {
protected:
    // Dragging begins with the first move, and lasts until the button is let go.
    void mouseMoveEvent(QMouseEvent* event) override {
        if (!event->buttons().testFlag(Qt::LeftButton)) {
            return;
        }
        QList<QUrl> urls;
        for (const QString& path : QCoreApplication::arguments().mid(1)) {
            urls.append(QUrl::fromLocalFile(path));
        }
        auto* files = new QMimeData;
        files->setUrls(urls);
        auto* drag = new QDrag(this);
        drag->setMimeData(files);
        connect(drag, &QDrag::actionChanged, this, [](Qt::DropAction action) {
            tell(action == Qt::CopyAction ? "would be copied" : "would not be copied");
        });
        const Qt::DropAction done = drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction);
        tell(done == Qt::CopyAction ? "copied" : "not copied");
    }
};

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    Source source;
    source.setWindowTitle(QStringLiteral("Files"));
    source.resize(120, 120);
    source.show();
    return QApplication::exec();
}
