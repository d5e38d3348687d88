#pragma once

#include "albums/album_file.h"
#include "ui/dialogs/frm_toolssettings.h"

#include <QPointer>

namespace velorama {

/// The settings dialog: loaded at its first use, anew after each unload and before it is shown.
class SettingsForm {
public:
    /// What it is given must outlive this object.
    SettingsForm(QWidget& window, const AlbumFile& album, ReportView& lvwALBUMS)
        : window_(window), album_(album), lvwALBUMS_(lvwALBUMS) {}

    frmTOOLSSETTINGS& loaded();
    /// Shows the dialog and waits for its end.
    void mnuTOOLSOPTIONS_Click();
    void unload();

private:
    QWidget& window_;
    const AlbumFile& album_;
    ReportView& lvwALBUMS_;
    QPointer<frmTOOLSSETTINGS> form_;
};

}  // namespace velorama
