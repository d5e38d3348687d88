#include "ui/main_window.h"

#include "controls/geometry/caption.h"
#include "controls/geometry/twips.h"
#include "controls/geometry/window_place.h"
#include "core/globals.h"
#include "core/lib_txt.h"
#include "ui/main_menus.h"

#include <QEvent>

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
      works_(*this, *pages_, *slideBar_, commands_, cdlDIALOG_, services_),
      keys_(*surface_, *pages_, *slideBar_),
      help_(*this, commands_, services_.netCHECKUPDATE, popups_.Icon()),
      settings_(*this, works_.album, *pages_->slideshows->albums.lvwALBUMS),
      show_(*this, services_.screenSaver, works_.audio, pages_->music->controls, settings_),
      mediaKeys_(*this, works_.audio, pages_->music->controls, show_, services_.device,
                 services_.mediaRemote) {
    design();
    connectEvents();
    connectCommands();
    setTabOrders();
}

void mfrmPRGMAIN::design() {
    setObjectName(QStringLiteral("mfrmPRGMAIN"));
    mnutxt1_.setObjectName(QStringLiteral("mnutxt1"));
    setWindowTitle(libTxt.ProductName);
    fillMenuBar(*menuBar(), commands_);
    addActions({&commands_.undo, &commands_.redo});
    setCentralWidget(surface_);
    setContextMenuPolicy(Qt::NoContextMenu);
    setMinimumSize(smallest);
    resize(toPixels(designWidth), toPixels(designHeight) + menuBar()->sizeHint().height());
    placeFirst(*this);
}

void mfrmPRGMAIN::connectEvents() {
    connect(surface_, &Surface::Resized, this, [this] {
        if (loaded_) {
            Form_Resize();
        }
    });
    connect(pages_->pictures, &PicturesPage::SplitterMoved, this, &mfrmPRGMAIN::VBarLayout);
    connect(&works_.found, &FoundList::Popup, this,
            [this](const PopupRequest& request) { popups_.popup(request, *pages_->pictures); });
    connect(&works_.slides, &SlideList::Popup, this,
            [this](const PopupRequest& request) { popups_.popup(request, *surface_); });
    connect(&works_.album, &AlbumFile::CaptionChanged, this,
            [this](const QString& caption) { setCaption(*this, caption); });
    connect(&mnutxt1_, &mnutxt::MenuHover, this,
            [](const QString& text) { gStatus->MenuText(text); });
}

void mfrmPRGMAIN::connectCommands() {
    connect(&commands_.start, &Command::triggered, this, &mfrmPRGMAIN::mnuFILESTART_Click);
    connect(&commands_.settings, &Command::triggered, this, [this] {
        settings_.mnuTOOLSOPTIONS_Click();
        slideBar_->showLength();
    });
    connect(&commands_.exit, &Command::triggered, this, &mfrmPRGMAIN::close);
}

// Down the page that is up, then the toolbar and the slide bar.
void mfrmPRGMAIN::setTabOrders() {
    const QList<QWidget*> order = pages_->tabOrder() + slideBar_->tabOrder();
    for (qsizetype i = 1; i < order.size(); ++i) {
        setTabOrder(order.at(i - 1), order.at(i));
    }
}

void mfrmPRGMAIN::mnuFILESTART_Click() {
    works_.slides.SELECTIONSAVE();
    show_.start();
}

void mfrmPRGMAIN::Form_Resize() {
    const float W = Width(*surface_);
    const float H = Height(*surface_);
    pages_->stretch(W, H);
    pages_->makeRoom();
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
    } else if (event->type() == QEvent::FontChange ||
               (event->type() == QEvent::ActivationChange && isActiveWindow())) {
        Form_Resize();
    }
}

}  // namespace velorama
