#pragma once

#include <QByteArrayList>

namespace velorama::fuzz {

/// What entries begin with, a file each.
QByteArrayList pictureSeeds();
/// WAV, MP3 and others; MIDI has its own.
QByteArrayList soundSeeds();
QByteArrayList midiSeeds();
/// Contents of SQLite files.
QByteArrayList thumbnailFileSeeds();
QByteArrayList settingsFileSeeds();
/// Written by readers' own counterparts, or spelled out.
QByteArrayList registryTextSeeds();
QByteArrayList desktopEntrySeeds();
QByteArrayList messageSeeds();

}  // namespace velorama::fuzz
