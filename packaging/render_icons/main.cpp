// render_icons SVG FOLDER PLACE SIZE...: the icon as FOLDER/<size>x<size>/PLACE, a PNG for each
// size.

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

namespace {

bool render(QSvgRenderer& icon, int size, const QString& path) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    icon.render(&painter);
    painter.end();
    return QDir().mkpath(QFileInfo(path).path()) && image.save(path, "PNG");
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 5) {
        std::fputs("render_icons SVG FOLDER PLACE SIZE...\n", stderr);
        return 2;
    }
    QSvgRenderer icon;
    if (!icon.load(QString::fromLocal8Bit(argv[1]))) {
        std::fprintf(stderr, "not an SVG picture: %s\n", argv[1]);
        return 1;
    }
    for (int i = 4; i < argc; ++i) {
        const int size = QByteArray(argv[i]).toInt();
        const QString path = QStringLiteral("%1/%2x%2/%3")
                                 .arg(QString::fromLocal8Bit(argv[2]))
                                 .arg(size)
                                 .arg(QString::fromLocal8Bit(argv[3]));
        if (size <= 0 || !render(icon, size, path)) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
            return 1;
        }
    }
    return 0;
}
