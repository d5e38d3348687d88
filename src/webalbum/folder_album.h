#pragma once

#include "browse/slide_controls.h"
#include "webalbum/file_copies.h"
#include "webalbum/mod_webalbum.h"

#include <functional>
#include <vector>

namespace velorama {

/// Writes a slide list as pages into a folder that the caller names: byte for byte the files of
/// `WebAlbum`, which has its album in the documents folder. Other than there, what could not be
/// done is told, and files of the user are not replaced in a folder that holds no web album yet.
class FolderAlbum {
public:
    /// What is being made, and how many of how many slides are done.
    using Step = std::function<void(const QString& what, int done, int of)>;

    /// `slides` must outlive this object. `folder` is an absolute path of this machine.
    FolderAlbum(const SlideControls& slides, const WebAlbumValues& values, const QString& folder,
                std::stop_source stop);

    /// Told from now on.
    void onStep(const Step& step) { step_ = step; }
    /// Lets events run; the build ends at the next picture where its stop is requested. What could
    /// not be done, which file and why, of several the first; empty where all was. A slide whose
    /// file is missing has a place in the pages all the same, and is not told here.
    QString write();

private:
    struct Target;
    std::vector<Target> targets() const;
    QString whatIsInTheWay() const;
    bool makeFolders();
    void writeStyleSheet();
    void copyPictures();
    void copyProgramImages();
    void writePages();
    std::vector<FileCopy> copies();
    void copy(const QString& source, const QString& target);
    void tellFailed(const FileCopy& failed);
    void fail(const QString& what);
    bool isStopped() const { return stop_.stop_requested(); }
    QString images() const;
    QString pictures() const;

    const SlideControls& c_;
    WebAlbumValues values_;
    /// Ends in its separator.
    QString folder_;
    std::stop_source stop_;
    Step step_;
    QString failure_;
};

}  // namespace velorama
