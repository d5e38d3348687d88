// How the main window, and with it the program, comes up and ends.

#include "browse/screen_pointer.h"
#include "core/documents.h"
#include "core/globals.h"
#include "platform/process/await_work.h"
#include "platform/process/events.h"
#include "platform/session/shell.h"
#include "ui/dialogs/modal_forms.h"
#include "ui/main_menus.h"
#include "ui/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLayout>
#include <QTimer>
#include <QWindow>

namespace velorama {
namespace {

const QString toolSettings = QStringLiteral("\\frmTOOLSSETTINGS\\Items");
// Milliseconds, from the request to show a window until it is on the screen.
constexpr int longestMapping = 500;

const QString viewSettings = QStringLiteral("\\mfrmPRGMAIN\\View");

/// The album of the command line, or else that of the last session.
QString albumToOpen(const QString& commandLine) {
    return commandLine.isEmpty() ? withoutOuterBlanks(loadSetting(
                                       viewSettings, QStringLiteral("Slideshow"), QString()))
                                 : commandLine;
}

}  // namespace

void mfrmPRGMAIN::Form_Load(const QString& commandLine) {
    FormLoading = true;
    const FoundControls& found = pages_->pictures->found;
    ListView& slides = *slideBar_->slides.lvwSLIDEBAR;
    pages_->webAlbum->load();
    if (services_.startUp) {
        services_.startUp(*this, commandLine);
    }
    mnutxt1_.start(menuBar(), {popups_.mnuFOUNDTOP, popups_.mnuSELECTEDTOP});
    ActiveList = QStringLiteral("SELECTED");
    slides.hide();
    restore();
    const QString albumPath = albumToOpen(commandLine);
    appear();
    fillUnseen();
    found.flbFOUND->setPattern(pictureMask);
    DoEvents();
    DoEvents();
    works_.load(albumPath);
    works_.showFirstSlide();
    setScreenPointer(ScreenPointer::Default);
    slides.show();
    VBarLayout();
    DoEvents();
    Form_Resize();
    FormLoading = false;
    if (!unloaded_) {
        mediaKeys_.start();
    }
    showLastFolder();
}

// Events run until the disk has answered for the folder: one that does not would keep the window
// from every key and click. Who chooses another folder, or closes the window, does not wait.
void mfrmPRGMAIN::showLastFolder() {
    const QPointer<mfrmPRGMAIN> self = this;
    FolderTree& tree = *pages_->pictures->found.ftvFOLDER;
    const QString folder =
        loadSetting(toolSettings, QStringLiteral("Files Location"), firstFolder());
    const auto look = [folder] {
        FolderTree::lookAlong(folder);
        return true;
    };
    bool isChosen = false;
    const QMetaObject::Connection chosen =
        connect(&tree, &FolderTree::NodeChange, [&isChosen] { isChosen = true; });
    const auto isLooked = awaitWork(look, [&] { return !self || unloaded_ || isChosen; });
    disconnect(chosen);
    if (isLooked) {
        tree.setPath(folder);
    }
}

void mfrmPRGMAIN::restore() {
    pages_->tint();
    setKeyHints(commands_);
    gRegistry->FormDimensionsSetup(*this, true);
    // A window that has not been shown has not laid itself out; what follows needs its inner size.
    layout()->setGeometry(rect());
    pages_->pictures->restoreSplitter();
    pages_->restore();
    disableUntilSlides(commands_);
}

void mfrmPRGMAIN::appear() {
    VBarLayout();
    DoEvents();
    loaded_ = true;
    Form_Resize();
    QMainWindow::show();
    VBarLayout();
    DoEvents();
    awaitFirstPaint();
}

// A window manager takes its time to map a window, and an album would be read before that. Where
// none ever shows it, on another desktop, the program does not wait for long.
void mfrmPRGMAIN::awaitFirstPaint() {
    QTimer limit;
    limit.setSingleShot(true);
    limit.start(longestMapping);
    while (!unloaded_ && !isMinimized() && !windowHandle()->isExposed() && limit.isActive()) {
        WaitEvents();
    }
}

// What the first paint need not wait for.
void mfrmPRGMAIN::fillUnseen() {
    QApplication::setWindowIcon(popups_.Icon());
    pages_->help->fill(popups_.Icon());
    slideBar_->slides.lvwSLIDEBAR->setFont(QFont(QStringLiteral("Arial"), 7));
}

void mfrmPRGMAIN::closeEvent(QCloseEvent* event) {
    if (unloaded_) {
        return;
    }
    if (closing_) {
        event->ignore();
        return;
    }
    closing_ = true;
    bool Cancel = false;
    Form_QueryUnload(Cancel);
    closing_ = false;
    event->setAccepted(!Cancel);
    if (!Cancel) {
        Form_Unload();
    }
}

void mfrmPRGMAIN::Form_QueryUnload(bool& Cancel) {
    // Before the commands have been switched off Save is on, with nothing there to save.
    Cancel = loaded_ && !works_.album.mayLeaveAlbum();
    works_.saveLists();
}

// A window that is ended before it has read its values would put those of its design in their
// place.
void mfrmPRGMAIN::saveAtEnd() {
    pages_->save();
    works_.slides.saveAtEnd();
    gRegistry->FormDimensionsSave(*this, true);
    pages_->pictures->saveSplitter();
    pages_->webAlbum->save();
}

void mfrmPRGMAIN::Form_Unload() {
    unloaded_ = true;
    mediaKeys_.stop();
    works_.stop();
    if (loaded_) {
        saveAtEnd();
    }
    mnutxt1_.stop();
    closeModalForms();
    help_.unload();
    settings_.unload();
    show_.unload();
    hide();
    QCoreApplication::quit();
}

}  // namespace velorama
