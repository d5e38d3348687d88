#pragma once

#include <QByteArray>
#include <QMap>
#include <QSize>
#include <QString>

#include <vector>

namespace velorama::test {

/// A slide as the second writer is told it.
struct ToldSlide {
    /// Name on the pages.
    QString text;
    /// Name of the file that the slide stands for, and what is in it; empty: it cannot be copied.
    QString file;
    QByteArray bytes;
    /// Size of the picture that stands under `text` among the copies; empty: there is none.
    QSize size;
};

struct ToldAlbum {
    QString title;
    std::vector<ToldSlide> slides;
    qint64 photo = 500;
    qint64 thumbnail = 95;
    /// Size of end.gif.
    QSize end;
    /// The program's own pictures and the style sheet, by name.
    QMap<QString, QByteArray> images;
};

/// Every file of the album by its path in the album's folder. Written by filling in the templates
/// of tests/webalbum/templates, without a line of the program's own writer.
QMap<QString, QByteArray> toldFiles(const ToldAlbum& album);

/// A style sheet by its template; values by their name there.
QByteArray toldSheet(const QMap<QString, QString>& values);

}  // namespace velorama::test
