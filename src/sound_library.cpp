// The library that the program loads with its first music.

#include "platform/sound/late_player.h"

extern "C" velorama::MediaCommands* velorama_media_player() {
    static_assert(std::is_same_v<decltype(&velorama_media_player), velorama::SoundEntry>);
    return velorama::makeMediaPlayer().release();
}
