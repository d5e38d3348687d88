#include "browse/wallpaper.h"

#include "browse/screen_pointer.h"
#include "controls/buttons/control_making.h"
#include "controls/geometry/twips.h"
#include "core/globals.h"
#include "imaging/decode/picture.h"
#include "imaging/scale/scaling.h"
#include "platform/files/private_files.h"
#include "platform/session/shell.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QPainter>
#include <QSaveFile>

#include <utility>

namespace velorama {
namespace {

/// The hourglass while it lives, unless somebody further out shows one already.
class Hourglass {
public:
    Hourglass() : own_(QGuiApplication::overrideCursor() == nullptr) {
        if (own_) {
            setScreenPointer(ScreenPointer::Hourglass);
        }
    }
    ~Hourglass() {
        if (own_) {
            setScreenPointer(ScreenPointer::Default);
        }
    }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;

private:
    bool own_;
};

/// Pixels that say all there is: see-through parts show the box's colour.
QImage opaque(const QImage& bitmap, const QColor& behind) {
    if (!bitmap.hasAlphaChannel()) {
        return bitmap;
    }
    QImage result(bitmap.size(), QImage::Format_RGB32);
    if (!result.isNull()) {
        result.fill(behind);
        QPainter(&result).drawImage(QPoint(), bitmap);
    }
    return result;
}

void paintStretched(const QImage& picture, PictureBox& box) {
    const QImage stretched = resampled(picture, box.scaleSize());
    if (!stretched.isNull()) {
        box.Image() = stretched;
    }
}

/// The bitmap file is replaced whole or stays as it is.
void savePicture(const QImage& picture, const QString& path) {
    const QFileInfo place(path);
    if (picture.isNull() || (place.exists() && !place.isFile())) {
        return;
    }
    makePrivateFolder(place.path());
    closeToOthers(place.path());
    QSaveFile file(path);
    // On a full disk only the flush says so.
    if (!file.open(QIODevice::WriteOnly)) {
        return;
    }
    // A disk without such rights takes the picture all the same.
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    if (picture.save(&file, "BMP") && file.flush()) {
        file.commit();
    }
}

}  // namespace

QString wallpaperFile() {
    return applicationFolder() + QStringLiteral("/Velorama Wallpaper.bmp");
}

WallpaperBoxes::WallpaperBoxes(QWidget& surface)
    : picWALLPAPER(make<PictureBox>("picWALLPAPER", &surface)),
      picPREVIEW(make<PictureBox>("picPREVIEW", &surface)) {
    for (PictureBox* box : {picWALLPAPER, picPREVIEW}) {
        place(*box, 0, 0, 1350, 1350);
        box->hide();
    }
}

Wallpaper::Wallpaper(const WallpaperControls& controls, std::function<int()> previewPosition,
                     DesktopBackground& desktop)
    : c_(controls), previewPosition_(std::move(previewPosition)), desktop_(desktop) {}

/// `choice`: list in, item of it out. Without an item nothing happens.
template <typename Choice>
void Wallpaper::setChosen(const Choice& choice) const {
    if (c_.lvwSLIDEBAR->Count() == 0) {
        ActiveList = QStringLiteral("FOUND");
    }
    if (c_.lvwFOUND->Count() == 0) {
        return;
    }
    const bool found = ActiveList == QStringLiteral("FOUND");
    const ListItem* item = choice(found ? *c_.lvwFOUND : *c_.lvwSLIDEBAR);
    if (item != nullptr) {
        SetDesktopWallpaper(found ? c_.ftvFOLDER->Path() + u'/' + item->Text() : item->Key());
    }
}

void Wallpaper::DESKTOPWALLPAPER() const {
    setChosen([](const ListView& list) { return list.SelectedItem(); });
}

void Wallpaper::DESKTOPWALLPAPERPREVIEW() const {
    const int position = previewPosition_ ? previewPosition_() : 0;
    setChosen([position](const ListView& list) { return list.item(position); });
}

void Wallpaper::load(const QString& path) const {
    const QImage bitmap = LoadPicture(path).bitmap;
    const QImage picture = opaque(bitmap, c_.picWALLPAPER->BackColor());
    if (!picture.isNull()) {
        paintStretched(picture, *c_.picWALLPAPER);
        c_.picWALLPAPER->setPicture(picture);
    }
}

void Wallpaper::SetDesktopWallpaper(const QString& Path) const {
    const Hourglass hourglass;
    // Not its picture: that is what is shown again where the new one cannot be loaded.
    c_.picWALLPAPER->Cls();
    load(Path);
    const QImage& picture = c_.picWALLPAPER->Picture();
    paintStretched(picture, *c_.picPREVIEW);
    c_.picPREVIEW->Refresh();
    savePicture(picture, wallpaperFile());
    desktop_.set(wallpaperFile());
}

}  // namespace velorama
