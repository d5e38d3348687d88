#pragma once

#include "controls/boxes/picture_box.h"
#include "controls/lists/folder_tree.h"
#include "controls/lists/list_view.h"
#include "platform/background/desktop_background.h"

#include <functional>

namespace velorama {

/// Two hidden boxes that belong to the surface they are made on.
struct WallpaperBoxes {
    explicit WallpaperBoxes(QWidget& surface);

    /// Used by nothing else: the last picture that could be loaded, at its full size.
    PictureBox* picWALLPAPER;
    /// The small box that shows the result.
    PictureBox* picPREVIEW;
};

struct WallpaperControls {
    ListView* lvwSLIDEBAR = nullptr;
    ListView* lvwFOUND = nullptr;
    FolderTree* ftvFOLDER = nullptr;
    /// Hidden, used by nothing else: the last picture that could be loaded, at its full size.
    PictureBox* picWALLPAPER = nullptr;
    /// The small box that shows the result.
    PictureBox* picPREVIEW = nullptr;
};

/// Full path of the one bitmap that the desktop is pointed at.
QString wallpaperFile();

/// Makes a picture of one of the two lists the desktop's background.
class Wallpaper {
public:
    /// `previewPosition`: row, from 1, of the picture on show in the preview window. The controls
    /// and the desktop must outlive this object.
    Wallpaper(const WallpaperControls& controls, std::function<int()> previewPosition,
              DesktopBackground& desktop);

    /// The current item of the list that the user touched last.
    void DESKTOPWALLPAPER() const;
    /// The picture on show in the preview window.
    void DESKTOPWALLPAPERPREVIEW() const;
    /// Saves the picture as the bitmap file and shows that. Where it cannot be loaded, the last one
    /// that could is saved and shown again; where it cannot be saved, the old file is. Lets no
    /// events run; the pointer is an hourglass meanwhile.
    void SetDesktopWallpaper(const QString& Path) const;

private:
    template <typename Choice>
    void setChosen(const Choice& choice) const;
    void load(const QString& path) const;

    WallpaperControls c_;
    std::function<int()> previewPosition_;
    DesktopBackground& desktop_;
};

}  // namespace velorama
