#pragma once

#include "platform/session/system_colours.h"

#include <QString>

#include <functional>

namespace velorama {

/// What stands on the page WebAlbum, under the names of its controls.
struct WebAlbumValues {
    QString txtTITLE;
    Colour picBACKGROUND = 0;
    Colour picTEXTCOLOR = 0;
    Colour picBARCOL = 0;
    Colour picTITLEBARCOL = 0;
    Colour picTITLEBARTEXTCOL = 0;
    QString cboFONTS;
    QString cboFONTSIZE;
    QString cboFONTSBAR;
    QString cboFONTSSIZEBAR;
    QString udnPHOTO;
    QString udnTHUMBNAIL;
};

/// Asked anew at every use, so that a change in the middle of a build reaches what is still to be
/// written.
using AskForValues = std::function<WebAlbumValues()>;

}  // namespace velorama
