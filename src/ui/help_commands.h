#pragma once

#include "core/commands.h"
#include "platform/web/http_fetch.h"
#include "shell/frm_helpcenter.h"

#include <QIcon>

namespace velorama {

/// Carries out the commands of the menu Help.
class HelpCommands : public QObject {
    Q_OBJECT
public:
    /// What it is given must outlive this object. `icon`: the program's own.
    HelpCommands(QWidget& window, const Commands& commands, HttpFetch& netCHECKUPDATE,
                 const QIcon& icon);

    void mnuHELPUPDATECHECK_Click();
    void mnuHELPABOUT_Click();
    /// Closes the window of help pages.
    void unload() { helpCenter_.unload(); }

private:
    void browse(const Command& command, const QString& link);
    void checkForUpdates(QWidget* owner, const QString& closeCaption);

    QWidget& window_;
    HttpFetch& netCHECKUPDATE_;
    QIcon icon_;
    HelpCenter helpCenter_;
};

}  // namespace velorama
