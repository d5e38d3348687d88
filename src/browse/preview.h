#pragma once

#include "browse/touched_picture.h"
#include "controls/boxes/image_box.h"
#include "controls/boxes/movie_box.h"

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
    /// `window` gives the preview window, which comes into being at the first call.
    Preview(TouchedPicture touched, std::function<PreviewWindow()> window);

    void PicturePreview();
    /// To the next picture or the previous one; both ends lead to the other.
    void PicturePreviewCertain(bool Forward);
    /// Row of the picture on show in its list, from 1; 0 before the first preview.
    int position() const { return position_; }

private:
    void layOut(const PreviewWindow& window, const QString& path) const;

    TouchedPicture touched_;
    std::function<PreviewWindow()> window_;
    int position_ = 0;
};

}  // namespace velorama
