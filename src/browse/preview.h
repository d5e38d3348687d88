#pragma once

#include "controls/boxes/image_box.h"
#include "controls/boxes/movie_box.h"
#include "controls/lists/folder_tree.h"
#include "controls/lists/list_view.h"

#include <QLabel>

#include <functional>

namespace velorama {

/// The parts of the preview window that are laid out for each picture.
struct PreviewWindow {
    QWidget* form = nullptr;
    QWidget* framBOX = nullptr;
    ImageBox* imgPICTURE = nullptr;
    MovieBox* webVIEWER = nullptr;
    QWidget* shpBORDER = nullptr;
    /// A quiet line below the border.
    QLabel* lblSIZE = nullptr;
    /// Shows the window over the main one and returns when it is closed.
    std::function<void()> show;
};

/// Shows the picture that is current in the list the user touched last in a window of its own, and
/// walks that window through the list.
class Preview {
public:
    struct Controls {
        ListView* lvwSLIDEBAR = nullptr;
        ListView* lvwFOUND = nullptr;
        FolderTree* ftvFOLDER = nullptr;
    };
    /// `window` gives the preview window, which comes into being at the first call.
    Preview(const Controls& controls, std::function<PreviewWindow()> window);

    void PicturePreview();
    /// To the next picture or the previous one; both ends lead to the other.
    void PicturePreviewCertain(bool Forward);
    /// Row of the picture on show in its list, from 1; 0 before the first preview.
    int position() const { return position_; }

private:
    const ListView& list() const;
    QString path(const ListItem* item, bool ownSeparator) const;
    void layOut(const PreviewWindow& window, const QString& path) const;

    Controls c_;
    std::function<PreviewWindow()> window_;
    int position_ = 0;
};

}  // namespace velorama
