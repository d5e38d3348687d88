#pragma once

#include <QtGlobal>

namespace velorama {

/// A colour as the program keeps it: 0x00BBGGRR, or with the top bit set 0x80000000 + an index into
/// the system's colour table.
using Colour = qint32;

constexpr Colour white = 0xFFFFFF;

constexpr Colour systemColour(int index) {
    return static_cast<Colour>(0x80000000U + static_cast<quint32>(index));
}

/// Number of entries of the system's colour table.
constexpr int systemColourCount = 25;

/// Plain colour (0x00BBGGRR) of entry `index` of the system's colour table, taken from the palette
/// of the running application; 0 for an index outside the table. Entries used here: 2 active
/// caption, 5 window background, 13 highlight, 15 button face, 16 button shadow, 20 3D highlight.
Colour GetSysColor(int index);

/// Plain colour that `colour` means, system colours looked up; -1 for an index outside the table.
Colour OleTranslateColor(Colour colour);

}  // namespace velorama
