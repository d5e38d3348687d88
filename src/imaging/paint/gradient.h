#pragma once

#include "platform/session/system_colours.h"

#include <QImage>

#include <vector>

namespace velorama {

/// Paints a two-colour linear gradient at any angle as a run of one-pixel lines perpendicular to
/// its direction.
class clsPICGRDNT {
public:
    /// Degrees, 0 to below 360: 0 runs left to right, 90 bottom to top.
    float Angle() const { return angle_; }
    void Angle(float degrees);
    Colour Color1() const { return color1_; }
    void Color1(Colour colour);
    Colour Color2() const { return color2_; }
    void Color2(Colour colour);

    /// Paints the whole bitmap (32 bits a pixel). False if nothing was drawn: width or height of 1
    /// or below.
    bool Draw(QImage& target) const;

    /// `steps` colours (at least 2) from `first` to `last`. The step is an `steps`th of the way, so
    /// the run stops short of `last`, which is set apart as the last entry.
    static std::vector<Colour> BlendColors(Colour first, Colour last, int steps);

private:
    float angle_ = 315;
    Colour color1_ = 0xFFFFD0;
    Colour color2_ = 0x400000;
};

}  // namespace velorama
