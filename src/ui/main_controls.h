#pragma once

#include "controls/file_list.h"
#include "controls/folder_tree.h"
#include "controls/image_list.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/list_view.h"
#include "controls/picture_box.h"
#include "controls/progress_bar.h"
#include "controls/push_button.h"
#include "controls/tab_strip.h"
#include "ui/slide_bar_shape.h"
#include "ui/splitter_bar.h"

#include <array>

namespace velorama {

/// All controls of the main window at their design places. They belong to the surface they stand
/// on.
struct MainControls {
    explicit MainControls(QWidget& surface);

    QWidget& surface;

    tab* tabPAGES;
    QWidget* picframPICTURES;
    FolderTree* ftvFOLDER;
    SplitterBar* picVBAR;
    ListView* lvwFOUND;
    Label* lblFOUNDCOUNT;
    QWidget* picframMUSICLIST;
    ListBox* lstMUSIC;
    /// 0 add, 1 remove, 2 play, 3 pause, 4 stop, 5 remove all.
    std::array<cbtn*, 6> cbtnAUDIO{};
    cbtn* Command1;
    cbtn* Command2;
    ProgressBar* prgPLAY;
    // Stores that the show reads too: length and position in seconds, and the track.
    Label* lblM1;
    Label* lblM2;
    Label* lblFile;
    PictureBox* picSELBAR;
    ProgressBar* prgBARSLIDES;
    QWidget* picbarCONTROLS;
    SlideBarShape* shpSLIDEBAR;
    ListView* lvwSLIDEBAR;
    /// Items 0 to 6 of the toolbar.
    std::array<cbtn*, 7> cbtnCONTROLS{};

    FileList flbFOUND;
    ImageList imlFOUNDICONS;
    ImageList imlTHUMBNAILS;

private:
    void makePicturesPage();
    void makeMusicPage();
    void makeToolbar();
    void makeSlideBar();
    void describe();
};

}  // namespace velorama
