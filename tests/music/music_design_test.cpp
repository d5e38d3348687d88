#include "music/music_controls.h"
#include "support/design_text.h"

#include <gtest/gtest.h>

namespace velorama {
namespace {

TEST(MusicControlsDesign, PlacesAndNames) {
    QWidget page;
    const MusicControls controls(page);
    EXPECT_EQ(test::designOf(page),
              "Command1 105 1095 450 330 \"Move up\"\n"
              "Command2 105 1440 450 330 \"Move down\"\n"
              "cbtnAUDIO0 105 60 450 330 \"Add music files\"\n"
              "cbtnAUDIO1 105 405 450 330 \"Remove the selected track\"\n"
              "cbtnAUDIO2 9150 2950 450 330 \"Play\"\n"
              "cbtnAUDIO3 9660 2950 450 330 \"Pause or go on\"\n"
              "cbtnAUDIO4 10170 2950 450 330 \"Stop\"\n"
              "cbtnAUDIO5 105 750 450 330 \"Remove all tracks\"\n"
              "lblFile 0 0 1500 450 hidden\nlblM1 0 0 1500 450 hidden\n"
              "lblM2 0 0 1500 450 hidden\nlstMUSIC 645 90 10170 2760 \"Music\"\n"
              "prgPLAY 645 3040 8200 150 \"Progress of the track\" hidden");
}

}  // namespace
}  // namespace velorama
