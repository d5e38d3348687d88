#pragma once

#include <QAction>
#include <QIcon>
#include <QMenu>
#include <QWidget>

namespace velorama {

/// The hidden form "Menus": the popup menus of the two picture lists and the program's icon.
class frmRESOURCEMAINSTORE : public QWidget {
    Q_OBJECT
public:
    explicit frmRESOURCEMAINSTORE(QWidget* parent);

    QIcon Icon() const { return windowIcon(); }

    QMenu* mnuFOUNDTOP;
    QAction* mnuFOUNDADD;
    QAction* mnuFOUNDADDALL;
    QAction* mnuFOUNDDESTOP;
    QAction* mnuFOUNDPREVIEW;

    QMenu* mnuSELECTEDTOP;
    QAction* mnuSELECTEDCLEAR;
    QAction* mnuSELECTEDCLEARALL;
    QAction* mnuSELECTEDDESKTOP;
    QAction* mnuSELECTEDPREVIEW;
};

}  // namespace velorama
