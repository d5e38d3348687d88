#pragma once

#include "albums/album_file.h"
#include "albums/album_list.h"
#include "albums/slide_list.h"
#include "browse/found_list.h"
#include "browse/preview.h"
#include "browse/wallpaper.h"
#include "controls/dialogs/common_dialog.h"
#include "controls/input/menu_text.h"
#include "music/audio_engine.h"
#include "player/frm_slideshow.h"
#include "shell/frm_helpcenter.h"
#include "shell/update_check.h"
#include "ui/dialogs/frm_picturepreview.h"
#include "ui/dialogs/frm_toolssettings.h"
#include "ui/frm_resourcemainstore.h"
#include "ui/main_layout.h"
#include "webalbum/web_album.h"

#include <QMainWindow>
#include <QPointer>

namespace velorama {

/// What the main window reaches of the machine; all of it must outlive the window. Without one of
/// the pointers its commands do nothing.
struct MainServices {
    ScreenSaver& screenSaver;
    MediaCommands& device;
    DesktopBackground* desktop = nullptr;
    HttpFetch* netCHECKUPDATE = nullptr;
    /// What the start does with the window, still empty and not shown, and the command line: other
    /// instances, the file type.
    std::function<void(QWidget& mainWindow, const QString& commandLine)> startUp = {};
};

/// The main window: makes the controls, owns the classes that work on them, and forwards its
/// handlers to these.
class mfrmPRGMAIN : public QMainWindow, private ShowHost {
    Q_OBJECT
public:
    explicit mfrmPRGMAIN(MainServices services);
    ~mfrmPRGMAIN() override;

    /// Restores the window and everything in it, in the order of the start, and opens the album
    /// that `commandLine` names, or the last one where it is empty. The window is visible before
    /// the first folder is listed; events run inside.
    void Form_Load(const QString& commandLine = {});
    /// True once the window has been closed for good.
    bool isUnloaded() const { return unloaded_; }

    void Form_Resize() { layout_.Form_Resize(); }
    void VBarLayout() { layout_.VBarLayout(); }

    void mnuFILESTART_Click();
    void mnuTOOLSOPTIONS_Click();
    void mnuHELPUPDATECHECK_Click();
    void mnuHELPABOUT_Click();
    void PicturePreview() { preview_.PicturePreview(); }
    void PicturePreviewCertain(bool Forward) { preview_.PicturePreviewCertain(Forward); }
    void DESKTOPWALLPAPER() { wallpaper_.DESKTOPWALLPAPER(); }
    void DESKTOPWALLPAPERPREVIEW() { wallpaper_.DESKTOPWALLPAPERPREVIEW(); }
    // For the show too.
    void AudioPlay() override { audio_.AudioPlay(); }
    void AudioPause() override { audio_.AudioPause(); }

    MainControls& controls() { return controls_; }
    WebAlbumPage& webAlbumPage() { return webAlbumPage_; }
    Commands& commands() { return commands_; }
    frmRESOURCEMAINSTORE& popups() { return popups_; }
    SlideList& slides() { return slides_; }
    AlbumFile& album() { return album_; }
    AlbumList& albums() { return albums_; }
    QPointer<frmSLIDESHOW> slideShow() const { return show_; }
    /// The settings dialog, loaded at its first use, anew after each unload and before it is shown.
    frmTOOLSSETTINGS& settings();

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class Surface;

    // -- ShowHost --
    /// A window closed while it loads does not come back at the end of that.
    void setVisible(bool visible) override;
    QString track() const override {
        return controls_.music.lstMUSIC->List(controls_.music.lstMUSIC->ListIndex());
    }
    QString trackLength() const override { return controls_.music.lblM1->Caption(); }
    QString trackPosition() const override { return controls_.music.lblM2->Caption(); }
    Colour background() override { return settings().background(); }
    Colour gradient() override { return settings().gradient(); }

    // -- what the classes are given --
    SlideListControls slideListControls();
    AlbumFile::Controls albumControls();
    AlbumList::Controls albumListControls();
    AlbumListCalls albumListCalls();
    FoundListCalls foundListCalls();
    WebAlbumControls webAlbumControls();
    WebAlbumScreen webAlbumScreen();
    /// The preview window, loaded at its first use; it unloads when it is closed.
    PreviewWindow previewWindow();

    // -- main_window_commands.cpp --
    void connectCommands();
    void connectHelp();
    void connectToolbar();
    void connectButtons();
    void connectSplitter();
    void setTabOrders();
    void checkForUpdates(QWidget* owner, const QString& closeCaption);
    /// `page`: what the asking list stands on; its coordinates count.
    void popup(const PopupRequest& request, const QWidget& page);
    void updateFoundCount();
    void tabPAGES_Click(const QString& caption);
    void showPage(int number);
    void Form_KeyDown(int& KeyCode, int& Shift);

    // -- main_window_start.cpp --
    void fillHelpPage();
    void restoreFrame();
    void restorePage();
    void disableCommands();
    void appear();
    void loadLists(const QString& albumPath);
    void showFirst();
    void Form_QueryUnload(bool& Cancel);
    void Form_Unload();

    MainServices services_;
    Commands commands_;
    Surface* surface_;
    MainControls controls_;
    CommonDialog cdlDIALOG_;
    WebAlbumPage webAlbumPage_;
    frmRESOURCEMAINSTORE popups_;
    mnutxt mnutxt1_{this};
    MainLayout layout_;
    LookAhead pictures_;
    Thumbnails thumbnails_;
    SlideList slides_;
    FoundList found_;
    AlbumList albums_;
    AlbumFile album_;
    AudioEngine audio_;
    WebAlbum webAlbum_;
    QPointer<frmPICTUREPREVIEW> previewForm_;
    Preview preview_;
    DesktopBackground noDesktop_;
    Wallpaper wallpaper_;
    HelpCenter helpCenter_{this};
    QPointer<frmSLIDESHOW> show_;
    QPointer<frmTOOLSSETTINGS> settings_;
    /// Where the window stood when it was hidden.
    QPoint place_;
    bool loaded_ = false;
    /// The lists of albums and music have been read from the settings.
    bool listsLoaded_ = false;
    /// The questions of a close are being asked.
    bool closing_ = false;
    bool unloaded_ = false;
};

}  // namespace velorama
