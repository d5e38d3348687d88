#pragma once

#include "browse/thumbnail_maker.h"
#include "controls/lists/image_list.h"
#include "imaging/ahead/look_ahead.h"

#include <QPointer>

#include <functional>

namespace velorama {

/// Whether a picture's file is there, and is a picture. Sought: somebody is looking.
enum class FileState { Unknown, Sought, Readable, NotFound, Unreadable };

/// Makes the two kinds of thumbnail: 64 pixels with a black frame for the found list, 90 pixels for
/// the slide list. Images are keyed by the picture's full path.
class Thumbnails {
public:
    /// Device pixels to the logical pixel: thumbnails are composed in device pixels.
    Thumbnails(ImageList& imlFOUNDICONS, ImageList& imlTHUMBNAILS, LookAhead& pictures,
               double devicePixelRatio = 1);

    static constexpr int slideCell = ThumbnailMaker::slideCell;

    /// Whether the batch that a thumbnail is made for has ended, or its window is gone.
    using IsLeft = std::function<bool()>;

    /// Adds an image to imlFOUNDICONS; lets pending events run before and after, and until the
    /// picture is loaded. Adds nothing for a batch that was left meanwhile.
    void FoundThumbnailAdd(const QString& Path, const IsLeft& isLeft = {});
    /// Adds an image to imlTHUMBNAILS. Lets events run until the picture is loaded, but none if the
    /// image is there. Adds nothing for a batch that was left meanwhile.
    void SlideThumbnailAdd(const QString& Path, const IsLeft& isLeft = {});
    /// Adds an image to imlTHUMBNAILS that is made once it is painted. Nothing if it is there.
    void SlideThumbnailLater(const QString& Path);

    /// What is known of a slide's file, from the making of its thumbnail or from a later look.
    FileState slideFile(const QString& path) const { return slideFiles_.value(path); }
    void learn(const QString& path, FileState state) { slideFiles_.insert(path, state); }

    /// Number of the first image whose key occurs in the path, 0 if none.
    int FoundIconIndex(const QString& Path) const;
    int SlideIconIndex(const QString& Path) const;

    /// Announces the files whose thumbnails come next, soonest first.
    void expectFound(const QStringList& paths);
    void expectSlides(const QStringList& paths);

    /// The picture that stands for none: image "dummy" of the found list.
    QImage placeholder() const;

private:
    static void add(ImageList& list, const QString& path, const Cell& cell,
                    const std::shared_ptr<const ThumbnailMaker>& maker);

    // Events run while a thumbnail is made, the closing of the window among them.
    QPointer<ImageList> imlFOUNDICONS_;
    QPointer<ImageList> imlTHUMBNAILS_;
    LookAhead& pictures_;
    QHash<QString, FileState> slideFiles_;
    // Shared with the origins of the images, which threads may be asking when this is gone.
    std::shared_ptr<const ThumbnailMaker> found_;
    std::shared_ptr<const ThumbnailMaker> slide_;
};

}  // namespace velorama
