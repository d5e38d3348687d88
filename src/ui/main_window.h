#pragma once

#include "albums/slide_list.h"
#include "browse/found_list.h"
#include "controls/common_dialog.h"
#include "music/audio_engine.h"
#include "player/frm_slideshow.h"
#include "ui/main_layout.h"
#include "ui/main_menus.h"

#include <QMainWindow>
#include <QPointer>

namespace velorama {

/// The main window: makes the controls, owns the classes that work on them, and forwards its
/// handlers to these.
class mfrmPRGMAIN : public QMainWindow, private ShowHost {
    Q_OBJECT
public:
    mfrmPRGMAIN(ScreenSaver& screenSaver, MediaCommands& device);
    ~mfrmPRGMAIN() override;

    /// Restores the window and everything in it, in the order of the start. The window is visible
    /// before the first folder is listed; events run inside.
    void Form_Load();
    /// True once the window has been closed for good.
    bool isUnloaded() const { return unloaded_; }

    void Form_Resize() { layout_.Form_Resize(); }
    void VBarLayout() { layout_.VBarLayout(); }

    void mnuFILESTART_Click();
    // For the show too.
    void AudioPlay() override { audio_.AudioPlay(); }
    void AudioPause() override { audio_.AudioPause(); }

    MainControls& controls() { return controls_; }
    MainMenus& menus() { return menus_; }
    SlideList& slides() { return slides_; }
    QPointer<frmSLIDESHOW> slideShow() const { return show_; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class Surface;

    /// A window closed while it loads does not come back at the end of that.
    void setVisible(bool visible) override;
    QString track() const override {
        return controls_.lstMUSIC->List(controls_.lstMUSIC->ListIndex());
    }
    QString trackLength() const override { return controls_.lblM1->Caption(); }
    QString trackPosition() const override { return controls_.lblM2->Caption(); }
    SlideListControls slideListControls();
    MusicControls musicControls();
    QStringList chooseMusic(const MusicFileRequest& request);
    FoundListCalls foundListCalls();
    void connectCommands();
    void connectSplitter();
    void setTabOrders();
    /// `page`: what the asking list stands on; its coordinates count.
    void popup(const PopupRequest& request, const QWidget& page);
    void updateFoundCount();
    void tabPAGES_Click(const QString& caption);
    void Form_KeyDown(int& KeyCode, int& Shift);

    void disableCommands();
    void showFirst();
    void Form_QueryUnload(bool& Cancel);
    void Form_Unload();

    ScreenSaver& screenSaver_;
    Surface* surface_;
    MainControls controls_;
    MainMenus menus_;
    MainLayout layout_;
    LookAhead pictures_;
    Thumbnails thumbnails_;
    SlideList slides_;
    FoundList found_;
    QTimer tmrMUSIC_;
    CommonDialog cdlDIALOG_;
    AudioEngine audio_;
    QPointer<frmSLIDESHOW> show_;
    /// Where the window stood when it was hidden.
    QPoint place_;
    bool loaded_ = false;
    bool unloaded_ = false;
};

}  // namespace velorama
