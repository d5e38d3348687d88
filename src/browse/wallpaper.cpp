#include "browse/wallpaper.h"

#include "browse/screen_pointer.h"
#include "controls/buttons/control_making.h"
#include "controls/geometry/twips.h"
#include "core/globals.h"
#include "imaging/decode/picture.h"
#include "imaging/scale/scaling.h"
#include "platform/files/file_beside.h"
#include "platform/files/private_files.h"
#include "platform/session/shell.h"

#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPainter>

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

}  // namespace

QString wallpaperFile() {
    return applicationFolder() + QStringLiteral("/Velorama Wallpaper.bmp");
}

QImage wallpaperPicture(const QString& path, const QColor& behind) {
    return opaque(LoadPicture(path).bitmap, behind);
}

bool saveWallpaper(const QImage& picture) {
    const QString path = wallpaperFile();
    const QFileInfo place(path);
    if (picture.isNull() || (place.exists() && !place.isFile())) {
        return false;
    }
    makePrivateFolder(place.path());
    closeToOthers(place.path());
    FileBeside beside(QFile::encodeName(place.path()));
    QFile file;
    if (beside.number() < 0 || !file.open(beside.number(), QIODevice::WriteOnly)) {
        return false;
    }
    // A disk without such rights takes the picture all the same.
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    // On a full disk only the flush says so. A link in the file's place goes: what it leads to is
    // not the program's own.
    return picture.save(&file, "BMP") && file.flush() && reachesDisk(beside.number()) &&
           beside.becomes(QFile::encodeName(path));
}

WallpaperBoxes::WallpaperBoxes(QWidget& surface)
    : picWALLPAPER(make<PictureBox>("picWALLPAPER", &surface)),
      picPREVIEW(make<PictureBox>("picPREVIEW", &surface)) {
    for (PictureBox* box : {picWALLPAPER, picPREVIEW}) {
        place(*box, 0, 0, 1350, 1350);
        box->hide();
    }
}

Wallpaper::Wallpaper(TouchedPicture touched, const WallpaperBoxes& boxes,
                     DesktopBackground& desktop)
    : touched_(touched), boxes_(boxes), desktop_(desktop) {}

void Wallpaper::DESKTOPWALLPAPER() const {
    if (touched_.choose()) {
        setItem(touched_.list().SelectedItem());
    }
}

void Wallpaper::DESKTOPWALLPAPERPREVIEW(int position) const {
    if (touched_.choose()) {
        setItem(touched_.list().item(position));
    }
}

void Wallpaper::setItem(const ListItem* item) const {
    if (item != nullptr) {
        SetDesktopWallpaper(touched_.path(item));
    }
}

void Wallpaper::load(const QString& path) const {
    const QImage picture = wallpaperPicture(path, boxes_.picWALLPAPER->BackColor());
    if (!picture.isNull()) {
        // Takes away what was painted on the box before.
        boxes_.picWALLPAPER->setPicture(picture);
    }
}

void Wallpaper::SetDesktopWallpaper(const QString& Path) const {
    const Hourglass hourglass;
    // Not its picture: that is what is shown again where the new one cannot be loaded.
    boxes_.picWALLPAPER->Cls();
    load(Path);
    const QImage& picture = boxes_.picWALLPAPER->Picture();
    paintStretched(picture, *boxes_.picPREVIEW);
    boxes_.picPREVIEW->Refresh();
    saveWallpaper(picture);
    desktop_.set(wallpaperFile());
}

}  // namespace velorama
