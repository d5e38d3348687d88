#include "browse/preview.h"

#include "controls/geometry/caption.h"
#include "controls/geometry/twips.h"
#include "controls/geometry/window_place.h"
#include "core/globals.h"
#include "imaging/decode/picture.h"
#include "imaging/scale/scaling.h"
#include "platform/files/paths.h"
#include "platform/numbers.h"

#include <algorithm>

namespace velorama {
namespace {

// Twips.
constexpr float pictureMargin = 50;
constexpr float leastFormWidth = 7000;
constexpr float frameLeft = 100;
// What a browser's own border and scroll bars would take.
constexpr float viewerOffset = -30;
constexpr float viewerRoom = 400;
constexpr float hiddenPixels = 300;

/// The size of what is on show in the line below it; of a file that gives nothing, that.
void tellSize(const PreviewControls& w, QSize pixels) {
    w.lblSIZE->setText(pixels.isEmpty()
                           ? QStringLiteral("This picture cannot be shown.")
                           : decimalText(pixels.width()) + QStringLiteral(" \u00D7 ") +
                                 decimalText(pixels.height()) + QStringLiteral(" pixels"));
}

/// Loads the file; one that cannot be read leaves what is there.
Picture load(const PreviewControls& w, const QString& path, const Fit& fit) {
    Picture picture = LoadPicture(hostFile(path), fit);
    w.imgPICTURE->setPicture(picture.bitmap, picture.size);
    tellSize(w, picture.size);
    return picture;
}

/// The control takes the size of its picture and then keeps what it is given.
void takeNaturalSize(ImageBox& image) {
    image.setStretch(false);
    image.setStretch(true);
}

/// The longer side becomes half of the screen's.
void halveScreen(ImageBox& image) {
    const float width = Width(image);
    const float height = Height(image);
    if (width > height) {
        const float ratio = height / width;
        setWidth(image, screenWidth(image) * 0.5F);
        setHeight(image, Width(image) * ratio);
    } else {
        const float ratio = width / height;
        setHeight(image, screenHeight(image) * 0.5F);
        setWidth(image, Height(image) * ratio);
    }
}

/// What is drawn is fitted once, with the program's own filter; see-through parts stay that.
void sharpen(ImageBox& image, const Picture& picture) {
    const QSize pixels = devicePixels(image);
    if (picture.isNull() || picture.bitmap.size() == pixels) {
        return;
    }
    const bool seeThrough = picture.bitmap.hasAlphaChannel();
    image.setPicture(
        seeThrough ? picture.bitmap.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                   : resampled(picture.bitmap, pixels, picture.extent),
        picture.size);
}

void frame(const PreviewControls& w) {
    setWidth(*w.framBOX, Width(*w.imgPICTURE) + pictureMargin);
    setHeight(*w.framBOX, Height(*w.imgPICTURE) + pictureMargin);
    setLeft(*w.imgPICTURE, (Width(*w.framBOX) - Width(*w.imgPICTURE)) * 0.5F);
    setTop(*w.imgPICTURE, (Height(*w.framBOX) - Height(*w.imgPICTURE)) * 0.5F);
}

void showLarge(const PreviewControls& w, const QString& path) {
    ImageBox& image = *w.imgPICTURE;
    // Neither side comes out longer; a picture that is nearly a square is higher than half the
    // screen.
    const int longest =
        toPixels(std::max(screenWidth(image), screenHeight(image)) / 2, TwipsPerPixelX(image));
    const Picture picture = load(w, path, Fit::area({longest, longest}));
    takeNaturalSize(image);
    halveScreen(image);
    sharpen(image, picture);
    w.webVIEWER->hide();
    image.show();
    frame(w);
}

/// Gives the size of what is shown. A name may lie about its content: what is no film stands still,
/// and looks as it does in the lists.
QSize showIn(MovieBox& viewer, const QString& path) {
    if (gPagProps->kind() == clsPAGPROPS::Gif) {
        viewer.Navigate(hostFile(path));
        if (viewer.movie() != nullptr) {
            return {gPagProps->PictureAttribWidth(), gPagProps->PictureAttribHeight()};
        }
    }
    const Picture picture = LoadPicture(hostFile(path));
    viewer.setStill(picture.bitmap);
    return picture.size;
}

void showMoving(const PreviewControls& w, const QString& path) {
    MovieBox& viewer = *w.webVIEWER;
    const float across = TwipsPerPixelX(viewer);
    const float down = TwipsPerPixelY(viewer);
    const auto width = static_cast<float>(gPagProps->PictureAttribWidth());
    const auto height = static_cast<float>(gPagProps->PictureAttribHeight());
    w.imgPICTURE->hide();
    viewer.show();
    place(viewer, viewerOffset, viewerOffset, (width + hiddenPixels) * across + viewerRoom,
          (height + hiddenPixels) * down + viewerRoom);
    setWidth(*w.framBOX, Width(viewer) - hiddenPixels * across);
    setHeight(*w.framBOX, Height(viewer) - hiddenPixels * down);
    viewer.setView(QRect(-viewer.pos(), w.framBOX->size()));
    tellSize(w, showIn(viewer, path));
}

void showSmall(const PreviewControls& w, const QString& path) {
    w.webVIEWER->hide();
    w.imgPICTURE->setStretch(true);
    // The former content keeps the size that it was shown at.
    if (!load(w, path, Fit::whole()).isNull()) {
        takeNaturalSize(*w.imgPICTURE);
    }
    w.imgPICTURE->show();
    frame(w);
}

void fitForm(const PreviewControls& w) {
    setLeft(*w.framBOX, frameLeft);
    const float s = Left(*w.framBOX) + Width(*w.framBOX) + Left(*w.framBOX);
    if (s > leastFormWidth) {
        setWidth(w.form, s + 100);
    } else {
        setWidth(w.form, leastFormWidth);
        setLeft(*w.framBOX, (Width(w.form) - Width(*w.framBOX)) * 0.5F);
    }
    setHeight(w.form, Top(*w.framBOX) + Height(*w.framBOX) + Top(*w.framBOX) - 60);
    setWidth(*w.shpBORDER, Width(w.form));
    setHeight(*w.shpBORDER, Height(*w.framBOX) + 120 + 90);
    const float below = Top(*w.shpBORDER) + Height(*w.shpBORDER);
    place(*w.lblSIZE, frameLeft, below, Width(w.form) - 2 * frameLeft, Height(w.form) - below);
}

void layOut(const PreviewControls& w, const QString& path) {
    gPagProps->PictureFileInformation(path);
    const float halfAcross = screenWidth(w.form) / TwipsPerPixelX(w.form) / 2;
    const float halfDown = screenHeight(w.form) / TwipsPerPixelY(w.form) / 2;
    const bool wide = static_cast<float>(gPagProps->PictureAttribWidth()) > halfAcross;
    const bool high = static_cast<float>(gPagProps->PictureAttribHeight()) > halfDown;
    if (wide || high) {
        showLarge(w, path);
    } else if (path.right(3).toUpper() == QLatin1String("GIF")) {
        showMoving(w, path);
    } else {
        showSmall(w, path);
    }
    const QSize before = w.form.size();
    fitForm(w);
    // A window that its user has put half off the screen stays there until it needs more room.
    if (before.expandedTo(w.form.size()) != before) {
        keepOnScreen(w.form);
    }
}

}  // namespace

Preview::Preview(TouchedPicture touched, Window window)
    : touched_(touched), window_(std::move(window)) {}

void Preview::PicturePreview() {
    if (!touched_.choose()) {
        return;
    }
    const ListItem* item = touched_.list().SelectedItem();
    position_ = item != nullptr ? item->Index() : position_;
    layOut(window_(), touched_.path(item));
    emit Ready();
}

void Preview::PicturePreviewCertain(bool Forward) {
    position_ += Forward ? 1 : -1;
    const int count = touched_.list().Count();
    if (!Forward && position_ == 0) {
        position_ = count;
    }
    if (Forward && position_ == count + 1) {
        position_ = 1;
    }
    const QString shown = touched_.joinedPath(touched_.list().item(position_));
    const PreviewControls& window = window_();
    layOut(window, shown);
    setCaption(window.form, QLatin1Char('(') + decimalText(position_) + QStringLiteral(" of ") +
                                decimalText(count) + QStringLiteral(") ") +
                                gFileFoldr->FileNameFromPath(shown, true));
}

}  // namespace velorama
