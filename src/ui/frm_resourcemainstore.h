#pragma once

#include "browse/popup_request.h"
#include "core/commands.h"

#include <QIcon>
#include <QMenu>
#include <QWidget>

namespace velorama {

/// The hidden form "Menus": the popup menus of the two picture lists and the program's icon.
class frmRESOURCEMAINSTORE : public QWidget {
    Q_OBJECT
public:
    frmRESOURCEMAINSTORE(QWidget* parent, Commands& commands);

    QIcon Icon() const { return windowIcon(); }

    /// `page`: what the asking list stands on; its coordinates count.
    void popup(const PopupRequest& request, const QWidget& page);

    QMenu* mnuFOUNDTOP;
    QMenu* mnuSELECTEDTOP;
};

}  // namespace velorama
