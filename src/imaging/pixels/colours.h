#pragma once

#include "platform/session/system_colours.h"

#include <QRgb>
#include <QString>

#include <optional>

namespace velorama {

/// Opaque QRgb of a plain colour (0x00BBGGRR); system colours are looked up first.
QRgb toRgb(Colour colour);
/// Plain colour of a QRgb, alpha dropped.
Colour fromRgb(QRgb rgb);

/// Plain colour, or -1 where the system has no such colour. The palette handle is not used.
Colour ColorTranslate(Colour colour, int palette = 0);

/// Mix of two colours, `weight` 0 to 255 of the first, each channel rounded with halves to even.
Colour ColorMix(Colour first, Colour second, int weight);

class clsCOLRSTYLE {
public:
    /// Page colour "#RRGGBB" of a plain colour given as decimal text; nothing if the text is no
    /// number.
    std::optional<QString> ColorSTRtoHTML(const QString& colour) const;

    /// Lightens or darkens a colour by adding `amount` to its channels; blue goes by 192ths with
    /// `scale`, or by the plain amount without. Channels stop at 0 and 255.
    Colour funcCOLORVALEDIT(Colour colour, qint32 amount, bool scale) const;
};

}  // namespace velorama
