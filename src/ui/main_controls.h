#pragma once

#include "controls/boxes/label.h"
#include "controls/boxes/picture_box.h"
#include "controls/boxes/progress_bar.h"
#include "controls/buttons/push_button.h"
#include "controls/buttons/tab_strip.h"
#include "controls/lists/file_list.h"
#include "controls/lists/folder_tree.h"
#include "controls/lists/image_list.h"
#include "controls/lists/list_view.h"
#include "controls/lists/report_view.h"
#include "music/music_controls.h"
#include "ui/parts/slide_bar_shape.h"
#include "ui/parts/splitter_bar.h"

#include <QLabel>

#include <array>

namespace velorama {

/// All controls of the main window at their design places, but for those of the page WebAlbum.
/// They belong to the surface they stand on.
struct MainControls {
    explicit MainControls(QWidget& surface);

    QWidget& surface;

    tab* tabPAGES;

    // Page Slideshows.
    QWidget* picframSLIDEHSOW;
    /// New, Open, Save, Save As.
    std::array<cbtn*, 4> cbtnSLIDES{};
    ReportView* lvwALBUMS;
    cbtn* btnADD;
    cbtn* btnREMOVE;
    cbtn* btnView;

    // Page Pictures.
    QWidget* picframPICTURES;
    FolderTree* ftvFOLDER;
    SplitterBar* picVBAR;
    ListView* lvwFOUND;
    Label* lblFOUNDCOUNT;
    /// 0 preview, 1 wallpaper.
    std::array<cbtn*, 2> cbtnBROWSEBTNS{};

    // Page Music.
    QWidget* picframMUSICLIST;
    MusicControls music;

    QWidget* picframWEBALBM;

    // Page Help.
    QWidget* picframHELP;
    QLabel* imgICON;
    QLabel* lblMAINTITLE;
    QLabel* lblVERSION;
    QLabel* lblCOPYRIGHT;
    cbtn* cbtnHELP;
    cbtn* cbtnUPDATES;
    cbtn* cbtnWEBSITE;
    cbtn* cbtnSUPPORT;
    cbtn* cbtnABOUT;

    PictureBox* picSELBAR;
    ProgressBar* prgBARSLIDES;
    QWidget* picbarCONTROLS;
    SlideBarShape* shpSLIDEBAR;
    ListView* lvwSLIDEBAR;
    /// The toolbar's items 0 to 6 and 8; there is no item 7.
    std::array<cbtn*, 9> cbtnCONTROLS{};

    // Hidden: what the wallpaper is made in, and its small copy.
    PictureBox* picWALLPAPER;
    PictureBox* picPREVIEW;
    FileList flbFOUND;
    ImageList imlFOUNDICONS;
    ImageList imlTHUMBNAILS;

    /// The five pages in the order of their tabs.
    std::array<QWidget*, 5> pages() const {
        return {picframSLIDEHSOW, picframPICTURES, picframMUSICLIST, picframWEBALBM, picframHELP};
    }

private:
    QWidget* makePage(const char* name);
    void makeSlideshowsPage();
    void makePicturesPage();
    void makeHelpPage();
    void makeBand();
    void makeToolbar();
    void makeSlideBar();
    void makeStores();
    void describe();
};

}  // namespace velorama
