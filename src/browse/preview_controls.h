#pragma once

#include "controls/boxes/image_box.h"
#include "controls/boxes/movie_box.h"

#include <QLabel>

namespace velorama {

/// The parts of the preview window that are laid out for each picture. They belong to the form they
/// are made on.
struct PreviewControls {
    explicit PreviewControls(QWidget& window);

    QWidget& form;
    QWidget* shpBORDER;
    QWidget* framBOX;
    ImageBox* imgPICTURE;
    MovieBox* webVIEWER;
    /// A quiet line below the border.
    QLabel* lblSIZE;
};

}  // namespace velorama
