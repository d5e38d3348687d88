#pragma once

#include "browse/preview_controls.h"
#include "browse/touched_picture.h"

#include <functional>

namespace velorama {

/// Shows the picture that is current in the list the user touched last in a window of its own, and
/// walks that window through the list.
class Preview : public QObject {
    Q_OBJECT
public:
    /// The preview window, which comes into being at the first call.
    using Window = std::function<const PreviewControls&()>;

    Preview(TouchedPicture touched, Window window);

    void PicturePreview();
    /// To the next picture or the previous one; both ends lead to the other.
    void PicturePreviewCertain(bool Forward);
    /// Row of the picture on show in its list, from 1; 0 before the first preview.
    int position() const { return position_; }

signals:
    /// The picture is in the window, which is to be shown over the main one until it is closed.
    void Ready();

private:
    TouchedPicture touched_;
    Window window_;
    int position_ = 0;
};

}  // namespace velorama
