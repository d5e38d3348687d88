#pragma once

#include "controls/boxes/progress_bar.h"
#include "controls/lists/list_view.h"
#include "webalbum/picture_measure.h"
#include "webalbum/web_album_values.h"

#include <functional>
#include <stop_token>

namespace velorama {

/// How a build is left, in words for the user.
inline const QString leavingBuild = QStringLiteral("Closing the window ends it.");

/// What the writers of one build share.
struct AlbumBuild {
    AskForValues values;
    ProgressBar& prgBARSLIDES;
    /// Ends the writers at their next picture. A page that is not complete is not written.
    std::stop_token stop;
    PictureMeasure measure{};
    /// Told the name of each page that could not be written.
    std::function<void(const QString& name)> unwritten{};

    /// Writes a page into a folder that ends in its separator.
    void save(const QString& page, const QString& folder, const QString& name) const;
};

/// Write the text files of a web album.
///
/// `folder` is the album folder, ending in its separator; empty where there can be none, and then
/// nothing is written. A page whose name cannot stand in that folder is not written either. No name
/// and no title is escaped in the pages.
namespace modWEBALBUM {

/// Writes `mainwa.css` into the images of the application's folder.
void WebAlbumStyleSheetWrite(const WebAlbumValues& values);
/// The same to any file; false where that cannot be written.
bool WebAlbumStyleSheetSave(const WebAlbumValues& values, const QString& file);
/// Writes index1.html and so on, twelve pictures to a page.
void WebAlbumMainPagesWrite(AlbumBuild& build, const QString& folder, const QString& title,
                            const ListView& list);
/// Writes a page for each picture, named after it.
void WebAlbumSlidePagesWrite(AlbumBuild& build, const QString& folder, const QString& title,
                             const ListView& list);
/// How many of them a list of so many slides has, and how they are called, counted from 1.
int WebAlbumPageCount(int slides);
QString WebAlbumPageName(int page);
/// The next whole number, held in single precision.
int WebAlbumRoundUp(float value);

}  // namespace modWEBALBUM
}  // namespace velorama
