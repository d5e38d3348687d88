#include "albums/album_controls.h"
#include "support/design_text.h"

#include <gtest/gtest.h>

namespace velorama {
namespace {

TEST(AlbumControlsDesign, PlacesNamesAndColumns) {
    QWidget page;
    const AlbumControls controls(page);
    EXPECT_EQ(test::designOf(page),
              "btnADD 0 2950 1080 330\nbtnREMOVE 0 2950 1080 330\nbtnView 0 2950 1080 330\n"
              "lvwALBUMS 1650 90 9165 2760 \"Slideshow Albums\"");
    EXPECT_EQ(controls.lvwALBUMS->ColumnWidth(2), 2900);
}

}  // namespace
}  // namespace velorama
