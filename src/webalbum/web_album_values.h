#pragma once

#include "platform/session/system_colours.h"

#include <QString>

#include <functional>

namespace velorama {

/// What stands on the page WebAlbum, under the names of its controls. Each is asked anew at every
/// use, so that a change in the middle of a build reaches what is still to be written. One that is
/// not set counts as an empty text or black.
struct WebAlbumValues {
    using Text = std::function<QString()>;
    /// 0x00BBGGRR.
    using BackColor = std::function<Colour()>;

    Text txtTITLE;
    BackColor picBACKGROUND;
    BackColor picTEXTCOLOR;
    BackColor picBARCOL;
    BackColor picTITLEBARCOL;
    BackColor picTITLEBARTEXTCOL;
    Text cboFONTS;
    Text cboFONTSIZE;
    Text cboFONTSBAR;
    Text cboFONTSSIZEBAR;
    Text udnPHOTO;
    Text udnTHUMBNAIL;
};

inline QString valueOf(const WebAlbumValues::Text& text) {
    return text ? text() : QString();
}

inline Colour valueOf(const WebAlbumValues::BackColor& colour) {
    return colour ? colour() : 0;
}

}  // namespace velorama
