#pragma once

#include <QAction>
#include <QMenuBar>

#include <functional>

namespace velorama {

/// The menu bar's entries and the two popup menus of the picture lists.
struct MainMenus {
    explicit MainMenus(QMenuBar& bar);

    QMenu* mnuFILETOP;
    QMenu* mnuEDITTOP;
    QMenu* mnuFOUNDTOP;
    QMenu* mnuSELECTEDTOP;

    QAction* mnuFILESTART;
    QAction* mnuFILEEXIT;
    QAction* mnuEDITADD;
    QAction* mnuEDITADDALL;
    QAction* mnuEDITCLEAR;
    QAction* mnuEDITCLEARALL;

    QAction* mnuFOUNDADD;
    QAction* mnuFOUNDADDALL;
    QAction* mnuSELECTEDCLEAR;
    QAction* mnuSELECTEDCLEARALL;

    /// Gives the entries that are reached by a key of a list or of the system their key hints.
    void setKeyHints();
};

}  // namespace velorama
