#pragma once

#include "controls/input/menu_text.h"
#include "ui/dialogs/settings_form.h"
#include "ui/frm_resourcemainstore.h"
#include "ui/help_commands.h"
#include "ui/media_keys.h"
#include "ui/parts/surface.h"
#include "ui/show_start.h"
#include "ui/window_keys.h"
#include "ui/workshop.h"

#include <QMainWindow>

namespace velorama {

/// The main window: puts the pages, the slide bar and the classes that work on them together, and
/// knows how the program starts and ends.
class mfrmPRGMAIN : public QMainWindow {
    Q_OBJECT
public:
    explicit mfrmPRGMAIN(MainServices services);

    /// Restores the window and everything in it, in the order of the start, and opens the album
    /// that `commandLine` names, or the last one where it is empty. The window is visible before
    /// the first folder is listed; events run inside.
    void Form_Load(const QString& commandLine = {});
    /// True once the window has been closed for good.
    bool isUnloaded() const { return unloaded_; }
    /// A window closed while it loads does not come back at the end of that.
    void setVisible(bool visible) override;

    /// Places and tints everything by the size of the window.
    void Form_Resize();
    /// The part of it that follows the splitter.
    void VBarLayout();

    Pages& pages() { return *pages_; }
    SlideBar& slideBar() { return *slideBar_; }
    Commands& commands() { return commands_; }
    frmRESOURCEMAINSTORE& popups() { return popups_; }
    SlideList& slides() { return works_.slides; }
    AlbumFile& album() { return works_.album; }
    frmTOOLSSETTINGS& settings() { return settings_.loaded(); }
    QPointer<frmSLIDESHOW> slideShow() const { return show_.form(); }

protected:
    void changeEvent(QEvent* event) override;

private:
    void design();
    void connectEvents();
    void connectCommands();
    void setTabOrders();
    void mnuFILESTART_Click();

    // -- main_window_start.cpp, as Form_Load --
    void closeEvent(QCloseEvent* event) override;
    void restore();
    void showLastFolder();
    void appear();
    void awaitFirstPaint();
    void fillUnseen();
    void Form_QueryUnload(bool& Cancel);
    void saveAtEnd();
    void Form_Unload();

    MainServices services_;
    Commands commands_;
    CommonDialog cdlDIALOG_;
    frmRESOURCEMAINSTORE popups_;
    Surface* surface_;
    Pages* pages_;
    SlideBar* slideBar_;
    mnutxt mnutxt1_{this};
    Workshop works_;
    WindowKeys keys_;
    HelpCommands help_;
    SettingsForm settings_;
    ShowStart show_;
    MediaKeys mediaKeys_;
    /// Where the window stood when it was hidden.
    QPoint place_;
    bool loaded_ = false;
    /// The questions of a close are being asked.
    bool closing_ = false;
    bool unloaded_ = false;
};

}  // namespace velorama
