#pragma once

#include "browse/touched_picture.h"
#include "controls/boxes/picture_box.h"
#include "platform/background/desktop_background.h"

#include <QColor>
#include <QImage>

namespace velorama {

/// Two hidden boxes that belong to the surface they are made on.
struct WallpaperBoxes {
    explicit WallpaperBoxes(QWidget& surface);

    /// Used by nothing else: the last picture that could be loaded, at its full size.
    PictureBox* picWALLPAPER;
    /// The small box that shows the result.
    PictureBox* picPREVIEW;
};

/// Full path of the one bitmap that the desktop is pointed at.
QString wallpaperFile();

/// A picture file as the desktop gets it, see-through parts in the colour behind them; null where
/// it cannot be loaded.
QImage wallpaperPicture(const QString& path, const QColor& behind);
/// Puts it into the place of that bitmap, which is replaced whole. False where that stays as it is.
bool saveWallpaper(const QImage& picture);

/// Makes a picture of one of the two lists the desktop's background.
class Wallpaper {
public:
    /// What it is given must outlive this object.
    Wallpaper(TouchedPicture touched, const WallpaperBoxes& boxes, DesktopBackground& desktop);

    /// The current item of the list that the user touched last.
    void DESKTOPWALLPAPER() const;
    /// The picture on show in the preview window: row `position`, from 1, of that list.
    void DESKTOPWALLPAPERPREVIEW(int position) const;
    /// Saves the picture as the bitmap file and shows that. Where it cannot be loaded, the last one
    /// that could is saved and shown again; where it cannot be saved, the old file is. Lets no
    /// events run; the pointer is an hourglass meanwhile.
    void SetDesktopWallpaper(const QString& Path) const;

private:
    void setItem(const ListItem* item) const;
    void load(const QString& path) const;

    TouchedPicture touched_;
    const WallpaperBoxes& boxes_;
    DesktopBackground& desktop_;
};

}  // namespace velorama
