#include "ui/main_window.h"

#include "browse/screen_pointer.h"
#include "controls/geometry/caption.h"
#include "controls/geometry/twips.h"
#include "controls/geometry/window_place.h"
#include "core/globals.h"
#include "core/lib_txt.h"
#include "ui/main_menus.h"

#include <QCloseEvent>
#include <QMessageBox>

namespace velorama {
namespace {

// The window's inner surface at design, in twips, and the smallest window, in logical pixels.
constexpr float designWidth = 11040;
constexpr float designHeight = 7200;
constexpr QSize smallest(500, 400);

}  // namespace

mfrmPRGMAIN::mfrmPRGMAIN(MainServices services)
    : services_(std::move(services)),
      cdlDIALOG_(this),
      popups_(this, commands_),
      surface_(new Surface(this)),
      pages_(new Pages(*surface_, commands_, cdlDIALOG_)),
      slideBar_(new SlideBar(*surface_, commands_)),
      boxes_(*surface_),
      thumbnails_(*pages_->pictures->found.imlFOUNDICONS, *slideBar_->slides.imlTHUMBNAILS,
                  pictures_, devicePixelRatioF()),
      slides_(slideBar_->slides, pages_->pictures->found, commands_, thumbnails_),
      found_(pages_->pictures->found, *slideBar_->slides.prgBARSLIDES, thumbnails_),
      albums_(pages_->slideshows->albums, cdlDIALOG_),
      album_(slideBar_->slides, commands_, cdlDIALOG_, slides_, thumbnails_, albums_),
      audio_(pages_->music->controls, services_.device, cdlDIALOG_),
      webAlbum_({slideBar_->slides.lvwSLIDEBAR, slideBar_->slides.prgBARSLIDES}, commands_,
                pages_->webAlbum->values(), webAlbumScreen()),
      preview_({slideBar_->slides.lvwSLIDEBAR, pages_->pictures->found.lvwFOUND,
                pages_->pictures->found.ftvFOLDER},
               [this] { return previewWindow(); }),
      wallpaper_(
          {slideBar_->slides.lvwSLIDEBAR, pages_->pictures->found.lvwFOUND,
           pages_->pictures->found.ftvFOLDER, boxes_.picWALLPAPER, boxes_.picPREVIEW},
          [this] { return preview_.position(); }, services_.desktop),
      help_(*this, commands_, services_.netCHECKUPDATE, popups_.Icon()),
      settings_(*this, album_, *pages_->slideshows->albums.lvwALBUMS),
      show_(*this, services_.screenSaver, audio_, pages_->music->controls, settings_) {
    design();
    connectCommands();
    connectLists();
    connectForm();
    setTabOrders();
}

void mfrmPRGMAIN::design() {
    setObjectName(QStringLiteral("mfrmPRGMAIN"));
    mnutxt1_.setObjectName(QStringLiteral("mnutxt1"));
    setWindowTitle(libTxt.ProductName);
    fillMenuBar(*menuBar(), commands_);
    setCentralWidget(surface_);
    setContextMenuPolicy(Qt::NoContextMenu);
    setMinimumSize(smallest);
    resize(toPixels(designWidth), toPixels(designHeight) + menuBar()->sizeHint().height());
    centreOnScreen(*this);
}

// Those of slides, albums and help are connected by who carries them out.
void mfrmPRGMAIN::connectCommands() {
    const auto on = [this](const Command& command, auto handler) {
        connect(&command, &Command::triggered, this, handler);
    };
    on(commands_.start, &mfrmPRGMAIN::mnuFILESTART_Click);
    on(commands_.settings, [this] { settings_.mnuTOOLSOPTIONS_Click(); });
    on(commands_.exit, &mfrmPRGMAIN::close);
    on(commands_.preview, [this] { preview_.PicturePreview(); });
    on(commands_.wallpaper, [this] { wallpaper_.DESKTOPWALLPAPER(); });
    on(commands_.createWebAlbum, [this] { webAlbum_.cbtnWEBALBUM_Click(); });
    on(commands_.viewWebAlbum,
       [this] { webAlbum_.cbtnVIEWWEBALB_Click(QString::number(winId())); });
}

void mfrmPRGMAIN::connectLists() {
    PicturesPage* page = pages_->pictures;
    connect(&found_, &FoundList::FolderRead, page, &PicturesPage::showCount);
    connect(&found_, &FoundList::Clicked, &slides_, &SlideList::FoundButtonsCheck);
    connect(&found_, &FoundList::Listed, &slides_, [this] {
        slides_.FoundButtonsCheck();
        slides_.SelectChk();
        slides_.selectFirstSlide();
    });
    connect(&found_, &FoundList::Chosen, &slides_, &SlideList::Add);
    connect(&found_, &FoundList::KeyDown, &slides_, &SlideList::ListKeysCheck);
    connect(&found_, &FoundList::Popup, this,
            [this, page](const PopupRequest& request) { popups_.popup(request, *page); });
    connect(&slides_, &SlideList::Popup, this,
            [this](const PopupRequest& request) { popups_.popup(request, *surface_); });
    connect(slideBar_, &SlideBar::Pressed, &slides_, &SlideList::SelectChk);
    connect(page, &PicturesPage::SplitterMoved, this, &mfrmPRGMAIN::VBarLayout);
    connect(page, &PicturesPage::KeyDown, &slides_, &SlideList::ListKeysCheck);
}

void mfrmPRGMAIN::connectForm() {
    connect(&album_, &AlbumFile::CaptionChanged, this,
            [this](const QString& caption) { setCaption(*this, caption); });
    connect(&mnutxt1_, &mnutxt::MenuHover, this,
            [](const QString& text) { gStatus->MenuText(text); });
    connect(surface_, &Surface::Resized, this, [this] {
        if (loaded_) {
            Form_Resize();
        }
    });
}

// Down the page that is up, then the toolbar and the slide bar.
void mfrmPRGMAIN::setTabOrders() {
    const QList<QWidget*> order = pages_->tabOrder() + slideBar_->tabOrder();
    for (qsizetype i = 1; i < order.size(); ++i) {
        setTabOrder(order.at(i - 1), order.at(i));
    }
}

void mfrmPRGMAIN::mnuFILESTART_Click() {
    slides_.SELECTIONSAVE();
    show_.start();
}

WebAlbumScreen mfrmPRGMAIN::webAlbumScreen() {
    WebAlbumScreen screen;
    screen.critical = [this](const QString& text, const QString& caption) {
        QMessageBox::critical(this, caption, text);
    };
    screen.information = [this](const QString& text, const QString& caption) {
        QMessageBox::information(this, caption, text);
    };
    screen.hourglass = [](bool on) {
        setScreenPointer(on ? ScreenPointer::Hourglass : ScreenPointer::Default);
    };
    return screen;
}

PreviewWindow mfrmPRGMAIN::previewWindow() {
    if (!previewForm_) {
        previewForm_ = new frmPICTUREPREVIEW(
            this, {[this](bool forward) { preview_.PicturePreviewCertain(forward); },
                   [this] { wallpaper_.DESKTOPWALLPAPERPREVIEW(); }});
    }
    PreviewWindow window = previewForm_->parts();
    window.show = [form = previewForm_] {
        form->exec();
        delete form;
    };
    return window;
}

void mfrmPRGMAIN::Form_Resize() {
    const float W = Width(*surface_);
    const float H = Height(*surface_);
    pages_->stretch(W, H);
    slideBar_->hangBelow(Top(*pages_->tabPAGES) + Height(*pages_->tabPAGES), W);
    VBarLayout();
    slideBar_->tint();
    slideBar_->layOut(W, H);
    surface_->setSeparator(slideBar_->separator(W));
    pages_->layOut();
}

void mfrmPRGMAIN::VBarLayout() {
    const float W = Width(*surface_);
    if (pages_->placeBySplitter(W)) {
        slideBar_->stretch(W);
    }
}

void mfrmPRGMAIN::setVisible(bool visible) {
    const bool movable = !isMaximized() && !isFullScreen();
    if (!visible && isVisible()) {
        place_ = pos();
    } else if (visible && isHidden() && loaded_ && !place_.isNull() && movable) {
        // Moved by the user's hand, it would come back where the program last put it.
        move(place_);
    }
    QMainWindow::setVisible(visible && !unloaded_);
}

void mfrmPRGMAIN::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (!loaded_ || unloaded_) {
        return;
    }
    if (event->type() == QEvent::PaletteChange) {
        pages_->tint();
        Form_Resize();
    } else if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        Form_Resize();
    }
}

}  // namespace velorama
