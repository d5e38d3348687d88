#include "ui/help_commands.h"

#include "core/globals.h"
#include "core/lib_txt.h"
#include "shell/frm_helpabout.h"
#include "shell/update_check.h"
#include "ui/dialogs/frm_resourcewait.h"

#include <QPushButton>

namespace velorama {

HelpCommands::HelpCommands(QWidget& window, const Commands& commands, HttpFetch& netCHECKUPDATE,
                           const QIcon& icon)
    : window_(window), netCHECKUPDATE_(netCHECKUPDATE), icon_(icon), helpCenter_(&window) {
    connect(&commands.help, &Command::triggered, this, [] { gLibrary->subHELPCENTERPAGEINDEX(); });
    connect(&commands.updateCheck, &Command::triggered, this,
            &HelpCommands::mnuHELPUPDATECHECK_Click);
    connect(&commands.about, &Command::triggered, this, &HelpCommands::mnuHELPABOUT_Click);
    browse(commands.website, libTxt.WebsiteUrl);
    browse(commands.support, libTxt.SupportUrl);
}

void HelpCommands::browse(const Command& command, const QString& link) {
    connect(&command, &Command::triggered, this, [this, link] {
        gRegistry->InternetLinkRun(QString::number(window_.winId()), libTxt.ProtocolHttp, link);
    });
}

void HelpCommands::checkForUpdates(QWidget* owner, const QString& closeCaption) {
    UpdateCheck(netCHECKUPDATE_, [](QWidget* form) {
        frmRESOURCEWAIT(form).wait();
    }).run(owner, closeCaption);
}

void HelpCommands::mnuHELPUPDATECHECK_Click() {
    checkForUpdates(&window_, QStringLiteral("&Close"));
}

void HelpCommands::mnuHELPABOUT_Click() {
    frmHELPABOUT about(&window_, icon_);
    connect(about.btnUPDATES, &QPushButton::clicked, &about,
            [&] { checkForUpdates(&about, QStringLiteral(" &Close ")); });
    about.exec();
}

}  // namespace velorama
