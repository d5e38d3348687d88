#pragma once

#include "controls/buttons/icon.h"
#include "controls/input/command.h"

namespace velorama {

/// Every command of the program, once, with the name, caption, symbol and key of its menu entry.
/// Who carries a command out connects to it; who finds that it may not be given switches it off
/// here, and menus and buttons follow.
struct Commands {
    Command newAlbum{"mnuFILENEW", "&New             ", symbolIcon("new"), Qt::CTRL | Qt::Key_N};
    Command open{"mnuFILEOPEN", "&Open...", symbolIcon("open"), Qt::CTRL | Qt::Key_O};
    /// On while the list of slides holds what no album does: the mark of unsaved changes.
    Command save{"mnuFILESAVE", "&Save", symbolIcon("save"), Qt::CTRL | Qt::Key_S};
    Command saveAs{"mnuFILESAVEAS", "Save &As...       ", symbolIcon("save-as"), Qt::Key_F12};
    Command start{"mnuFILESTART", "Start Slidesho&w", symbolIcon("play"), Qt::Key_F5};
    Command settings{"mnuTOOLSOPTIONS", "Se&ttings...", symbolIcon("settings")};
    Command exit{"mnuFILEEXIT", "E&xit"};

    Command add{"mnuEDITADD", "&Add", symbolIcon("add")};
    Command addAll{"mnuEDITADDALL", "A&dd All", symbolIcon("add-all")};
    Command remove{"mnuEDITCLEAR", "&Remove", symbolIcon("remove")};
    Command removeAll{"mnuEDITCLEARALL", "Remo&ve All", symbolIcon("remove-all")};
    Command preview{"mnuEDITPREVIEW", "Picture Pr&eview", symbolIcon("preview"), Qt::Key_F11};
    Command wallpaper{"mnuTOOLSWALLPAPER", "Set As Desktop &Wallpaper", symbolIcon("wallpaper"),
                      Qt::Key_F4};

    Command help{"mnuHELPCONTENTS", "Help &Center Online", symbolIcon("help"), Qt::Key_F1};
    Command updateCheck{"mnuHELPUPDATECHECK", "Check For &Updates", symbolIcon("update")};
    Command website{"mnuHELPONLINE", "&Visit Website", symbolIcon("web")};
    Command support{"mnuHELPEMAILSUPPORT", "Customer &Support", symbolIcon("support")};
    Command about{"mnuHELPABOUT", "&About", symbolIcon("about")};

    // In no menu.
    Command undo{"undo", "Undo", {}, Qt::CTRL | Qt::Key_Z};
    Command redo{"redo", "Redo", {}, Qt::CTRL | Qt::SHIFT | Qt::Key_Z};
    Command moveBack;
    Command moveForward;
    Command choosePictures;
    Command showSamples;
    Command createWebAlbum;
    Command viewWebAlbum;
};

}  // namespace velorama
