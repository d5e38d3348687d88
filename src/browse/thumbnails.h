#pragma once

#include "controls/lists/image_list.h"
#include "imaging/ahead/look_ahead.h"

#include <QPointer>

namespace velorama {

/// Makes the two kinds of thumbnail: 64 pixels with a black frame for the found list, 90 pixels for
/// the slide list. Images are keyed by the picture's full path.
class Thumbnails {
public:
    /// Device pixels to the logical pixel: thumbnails are composed in device pixels.
    Thumbnails(ImageList& imlFOUNDICONS, ImageList& imlTHUMBNAILS, LookAhead& pictures,
               double devicePixelRatio = 1);

    static constexpr int foundCell = 64;
    static constexpr int slideCell = 90;

    /// Adds an image to imlFOUNDICONS; lets pending events run before and after.
    void FoundThumbnailAdd(const QString& Path);
    /// Adds an image to imlTHUMBNAILS.
    void SlideThumbnailAdd(const QString& Path);
    /// Number of the first image whose key occurs in the path, 0 if none.
    int FoundIconIndex(const QString& Path) const;
    int SlideIconIndex(const QString& Path) const;

    /// Announces the files whose thumbnails come next, soonest first.
    void expectFound(const QStringList& paths);
    void expectSlides(const QStringList& paths);

    /// The picture that stands for none: image "dummy" of the found list.
    QImage placeholder() const;

private:
    /// Side of a cell in device pixels.
    int devicePixels(int cell) const;
    QImage blankCell(int cell) const;

    // Events run while a thumbnail is made, the closing of the window among them.
    QPointer<ImageList> imlFOUNDICONS_;
    QPointer<ImageList> imlTHUMBNAILS_;
    LookAhead& pictures_;
    double ratio_;
    /// One for all files that cannot be loaded: an album of lost pictures takes no memory for them.
    QImage blankSlide_;
};

}  // namespace velorama
