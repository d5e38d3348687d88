// How the main window, and with it the program, comes up and ends.

#include "browse/screen_pointer.h"
#include "controls/geometry/twips.h"
#include "core/documents.h"
#include "core/globals.h"
#include "platform/process/events.h"
#include "platform/session/shell.h"
#include "ui/main_menus.h"
#include "ui/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLayout>

namespace velorama {
namespace {

const QString musicListName = QStringLiteral("mfrmPRGMAINAUD");
const QString pictureMask = QStringLiteral("*.bmp;*.jpg;*.gif");
const QString toolSettings = QStringLiteral("\\frmTOOLSSETTINGS\\Items");
const QString viewSettings = QStringLiteral("\\mfrmPRGMAIN\\View");

// The system may end the program under any of them. Their handlers are still running then, so they
// are closed and not deleted.
void closeModalForms() {
    const QWidget* before = nullptr;
    for (QWidget* form = QApplication::activeModalWidget(); form != nullptr && form != before;
         form = QApplication::activeModalWidget()) {
        before = form;
        form->close();
    }
}

}  // namespace

void mfrmPRGMAIN::Form_Load(const QString& commandLine) {
    FormLoading = true;
    pages_->help->fill(popups_.Icon());
    pages_->webAlbum->load();
    ListView& slides = *slideBar_->slides.lvwSLIDEBAR;
    slides.setFont(QFont(QStringLiteral("Arial"), 7));
    if (services_.startUp) {
        services_.startUp(*this, commandLine);
    }
    mnutxt1_.start(menuBar(), {popups_.mnuFOUNDTOP, popups_.mnuSELECTEDTOP});
    ActiveList = QStringLiteral("SELECTED");
    slides.hide();
    pages_->tint();
    setKeyHints(commands_);
    restoreFrame();
    pages_->restore();
    disableCommands();
    const QString albumPath =
        commandLine.isEmpty()
            ? withoutOuterBlanks(loadSetting(viewSettings, QStringLiteral("Slideshow"), QString()))
            : commandLine;
    album_.setUnmodified();
    appear();
    pages_->pictures->found.flbFOUND->setPattern(pictureMask);
    DoEvents();
    DoEvents();
    loadLists(albumPath);
    showFirst();
    setScreenPointer(ScreenPointer::Default);
    slides.show();
    VBarLayout();
    DoEvents();
    Form_Resize();
    FormLoading = false;
    pages_->pictures->found.ftvFOLDER->setPath(
        loadSetting(toolSettings, QStringLiteral("Files Location"), firstFolder()));
}

void mfrmPRGMAIN::restoreFrame() {
    gRegistry->FormDimensionsSetup(*this, true);
    // A window that has not been shown has not laid itself out; what follows needs its inner size.
    layout()->setGeometry(rect());
    pages_->pictures->restoreSplitter();
}

void mfrmPRGMAIN::disableCommands() {
    for (Command* command :
         {&commands_.removeAll, &commands_.start, &commands_.remove, &commands_.moveBack,
          &commands_.moveForward, &commands_.add, &commands_.addAll, &commands_.createWebAlbum}) {
        command->setEnabled(false);
    }
}

void mfrmPRGMAIN::appear() {
    VBarLayout();
    DoEvents();
    loaded_ = true;
    Form_Resize();
    QMainWindow::show();
    VBarLayout();
    DoEvents();
}

void mfrmPRGMAIN::loadLists(const QString& albumPath) {
    albums_.load();
    audio_.list.ListboxLoad(*pages_->music->controls.lstMUSIC, musicListName);
    listsLoaded_ = true;
    albums_.AlbumListSelect(albumPath);
    album_.openAtStart(albumPath);
}

void mfrmPRGMAIN::showFirst() {
    ActiveList = QStringLiteral("SELECTED");
    slides_.selectFirstSlide();
    ActiveList = QStringLiteral("SELECTED");
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
    Cancel = !album_.mayLeaveAlbum();
    if (!listsLoaded_) {
        return;  // Closed while it comes up: empty lists would take the place of those stored.
    }
    audio_.list.ListboxSave(*pages_->music->controls.lstMUSIC, musicListName);
    albums_.save();
}

void mfrmPRGMAIN::Form_Unload() {
    unloaded_ = true;
    stopAll();
    pages_->save();
    slides_.SELECTIONSAVE();
    gRegistry->FormDimensionsSave(*this, true);
    pages_->pictures->saveSplitter();
    pages_->webAlbum->save();
    mnutxt1_.stop();
    closeModalForms();
    help_.unload();
    settings_.unload();
    show_.unload();
    hide();
    QCoreApplication::quit();
}

void mfrmPRGMAIN::stopAll() {
    audio_.closeDevice();
    pages_->music->controls.tmrMUSIC->stop();
    found_.stop();
    slides_.stop();
    album_.stop();
    webAlbum_.stop();
}

}  // namespace velorama
