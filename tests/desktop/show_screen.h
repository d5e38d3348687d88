#pragma once

#include "desktop/pictures_page.h"

#include <QColor>
#include <QImage>

#include <array>

namespace velorama::desktop {

/// Where things stand during a show on a screen of `size` device pixels, worked out anew from the
/// lengths in twips.
struct ShowScreen {
    explicit ShowScreen(const QSize& size, double scale = 1);

    QRect picture;
    QRect frame;
    QRect caption;  ///< with the status below it
    QRect counter;

    std::array<QPoint, 4> corners() const;
    /// How far the gradient behind the show has gone from its first colour to its second, of 1.
    double gradientShare(const QPoint& at) const;
    /// The red of the gradient behind the show as it is from the start; green and blue are 0.
    double gradientRed(const QPoint& at) const;
    /// True if the frame is white and what lies around it is not.
    bool isFramed(const QImage& screen) const;

private:
    QSize m_size;
};

/// The 240 steps of a fade, computed one upon the other.
class FadeSteps {
public:
    FadeSteps(QImage from, QImage to);

    QImage at(int step) const;
    /// The step that looks like this; 0 if none does, as in the midst of a repaint.
    int stepOf(const QImage& screen) const;
    /// How much of the old picture is left, of 1, before any rounding.
    static double shareLeft(int step);

private:
    QImage m_from;
    QImage m_to;
};

int pixelsOf(const QImage& image, const QColor& colour);

}  // namespace velorama::desktop
