#include "music/music_controls.h"
#include "support/design_text.h"

#include <gtest/gtest.h>

namespace velorama {
namespace {

TEST(MusicControlsDesign, PlacesAndNames) {
    QWidget page;
    const MusicControls controls(page);
    EXPECT_EQ(test::designOf(page),
              "Command1 105 90 1440 345\n"
              "Command2 105 90 1440 345\n"
              "cbtnAUDIO0 105 90 1440 345\n"
              "cbtnAUDIO1 105 90 1440 345\n"
              "cbtnAUDIO2 0 2950 1080 330\n"
              "cbtnAUDIO3 0 2950 1080 330\n"
              "cbtnAUDIO4 0 2950 1080 330\n"
              "cbtnAUDIO5 105 90 1440 345\n"
              "lblFile 0 0 1500 450 hidden\nlblM1 0 0 1500 450 hidden\n"
              "lblM2 0 0 1500 450 hidden\nlstMUSIC 1650 90 9165 2760 \"Music\"\n"
              "prgPLAY 1650 3040 5700 150 \"Progress of the track\" hidden");
}

}  // namespace
}  // namespace velorama
