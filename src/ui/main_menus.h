#pragma once

#include <QAction>
#include <QMenuBar>

namespace velorama {

/// The menu bar and its entries, in their order.
struct MainMenus {
    explicit MainMenus(QMenuBar& bar);

    QMenu* mnuFILETOP;
    QAction* mnuFILENEW;
    QAction* mnuFILEOPEN;
    QAction* mnuFILESAVE;
    QAction* mnuFILESAVEAS;
    QAction* mnuFILESTART;
    QAction* mnuTOOLSOPTIONS;
    QAction* mnuFILEEXIT;

    QMenu* mnuEDITTOP;
    QAction* mnuEDITADD;
    QAction* mnuEDITADDALL;
    QAction* mnuEDITCLEAR;
    QAction* mnuEDITCLEARALL;
    QAction* mnuEDITPREVIEW;
    QAction* mnuTOOLSWALLPAPER;

    QMenu* mnuHELPTOP;
    QAction* mnuHELPCONTENTS;
    QAction* mnuHELPUPDATECHECK;
    QAction* mnuHELPONLINE;
    QAction* mnuHELPEMAILSUPPORT;
    QAction* mnuHELPABOUT;

    /// Gives the entries that are reached by a key of a list or of the system their key hints.
    void setKeyHints();

private:
    void makeSlideshow();
    void makeSlides();
    void makeHelp();
};

}  // namespace velorama
