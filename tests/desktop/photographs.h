#pragma once

#include <QColor>
#include <QImage>
#include <QRect>
#include <QString>

namespace velorama::desktop {

/// Real photographs from the wallpapers of Debian's package plasma-workspace-wallpapers, each with
/// a shape of its own.
inline constexpr char kWide[] = "Flow/contents/images/5120x2880.jpg";
inline constexpr char kOrdinary[] = "ColorfulCups/contents/images/2560x1600.jpg";
inline constexpr char kOther[] = "Autumn/contents/images/2560x1600.jpg";
inline constexpr char kTall[] = "Honeywave/contents/images/1080x1920.jpg";
inline constexpr char kTallest[] = "SafeLanding/contents/images/1622x2880.jpg";
inline constexpr char kSoft[] = "PastelHills/contents/images/3200x2000.jpg";

/// Copies a photograph to `file`; its folder is made. False if the package is not installed.
bool putPhotograph(const char* photograph, const QString& file);

/// `file` decoded whole and scaled with its aspect kept to `area` pixels, in double precision, on
/// white: what a show must look like at the end of a fade.
QImage fittedReference(const QString& file, const QSize& area);
/// The part of such a picture that is no bar.
QRect fittedPart(const QString& file, const QSize& area);

/// Peak signal to noise ratio over all three channels, in decibels; 99 for equal images, 0 for
/// images of different size.
double psnr(const QImage& a, const QImage& b);

/// True if every pixel has this colour.
bool isAll(const QImage& image, const QColor& colour);

}  // namespace velorama::desktop
