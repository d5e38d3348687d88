#pragma once

#include "controls/boxes/progress_bar.h"
#include "controls/lists/list_view.h"
#include "webalbum/web_album_values.h"

#include <QSizeF>
#include <QString>

namespace velorama {

/// Writes the text files of a web album.
///
/// `folder` is the album folder, ending in its separator; empty where there can be none, and then
/// nothing is written. A page whose name cannot stand in that folder is not written either. No name
/// and no title is escaped in the pages.
class modWEBALBUM {
public:
    /// The bar may be null.
    modWEBALBUM(WebAlbumValues values, ProgressBar* prgBARSLIDES);

    /// Forgets the picture measured last: its place is taken by a thumbnail's cell.
    void begin();
    /// The writers end at their next picture. A page that is not complete is not written.
    void stop() { stopped_ = true; }
    bool isStopped() const { return stopped_; }

    /// Writes `mainwa.css` into the images of the application's folder.
    void WebAlbumStyleSheetWrite() const;
    /// Writes index1.html and so on, twelve pictures to a page.
    void WebAlbumMainPagesWrite(const QString& folder, const QString& title, const ListView& list);
    /// Writes a page for each picture, named after it.
    void WebAlbumSlidePagesWrite(const QString& folder, const QString& title, const ListView& list);
    /// The start of a style attribute, left open, that shows a picture file at a size: a landscape
    /// one as wide, any other 24 less high. A file that is no picture takes the place of the one
    /// measured before. Lets events run.
    QString WebAlbumImageStyle(const QString& path, qint32 size);
    /// The next whole number, held in single precision.
    static int WebAlbumRoundUp(float value);

private:
    struct Slide;

    void load(const QString& path);
    void setProgress(int value);
    void showProgress(int count);
    void hideProgress();
    qint32 photoSize() const;
    qint32 thumbnailSize() const;
    QString style(const QString& folder, const QString& subfolder, const QString& name,
                  qint32 size);

    // main_pages.cpp
    QString pictureRows(const QString& folder, const ListView& list, int page, int& i);
    QString pictureCells(const QString& folder, const ListView& list, int first, int& i);
    QString captionCells(const ListView& list, int first, int& i);

    // slide_pages.cpp
    QString slidePage(const QString& folder, const QString& title, const Slide& slide);
    QString preview(const QString& folder, const QString& neighbour, const QString& alt);

    WebAlbumValues values_;
    ProgressBar* prgBARSLIDES_;
    /// Size that the picture measured last was given.
    QSizeF picSLIDETMPLT_;
    bool stopped_ = false;
};

}  // namespace velorama
