#include "album_window.h"

#include "core/documents.h"
#include "platform/files/paths.h"
#include "platform/process/events.h"

namespace velorama::bench {
namespace {

// About the main window at its design size, in pixels.
constexpr QSize formSize(790, 560);
constexpr QRect albumPlace(100, 60, 680, 300);
constexpr QRect slidePlace(5, 400, 780, 130);
constexpr QRect barPlace(5, 540, 780, 15);

}  // namespace

AlbumWindow::AlbumWindow()
    : slides_(bar_, found_, commands_, thumbnails_),
      albums_(known_, cdlDIALOG_),
      album_(bar_, commands_, cdlDIALOG_, slides_, thumbnails_, albums_) {
    form_.resize(formSize);
    known_.lvwALBUMS->setGeometry(albumPlace);
    found_.lvwFOUND->hide();
    bar_.lvwSLIDEBAR->setGeometry(slidePlace);
    bar_.prgBARSLIDES->setGeometry(barPlace);
    form_.show();
    DoEvents();
}

void AlbumWindow::fill(const QStringList& paths) {
    for (const QString& path : paths) {
        bar_.lvwSLIDEBAR->Add(bar_.lvwSLIDEBAR->Count() + 1, path, lastSegment(path), 0);
    }
    DoEvents();
}

void AlbumWindow::open(const QString& album) {
    album_.DocumentOpenText(album);
    DoEvents();
}

bool AlbumWindow::isComplete(int count) const {
    return bar_.lvwSLIDEBAR->Count() == count && bar_.imlTHUMBNAILS->Count() == count;
}

void AlbumWindow::own(const QString& album) {
    album_.setTag(album);
    albums_.AlbumListAdd(album);
    DoEvents();
}

QString writtenAlbum(const QStringList& files, const QTemporaryDir& folder) {
    QString path = folder.filePath(QStringLiteral("bench.vlr"));
    DocumentSaveText(QString::number(files.size()) + QLatin1String("\r\n") +
                         files.join(QLatin1String("\r\n")) + QLatin1String("\r\n"),
                     path);
    return path;
}

}  // namespace velorama::bench
