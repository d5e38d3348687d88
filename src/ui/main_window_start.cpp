#include "ui/main_window.h"

#include "browse/screen_pointer.h"
#include "controls/geometry/twips.h"
#include "core/documents.h"
#include "core/globals.h"
#include "core/lib_txt.h"
#include "platform/numbers.h"
#include "platform/process/events.h"
#include "platform/session/shell.h"
#include "ui/main_menus.h"

#include <QApplication>
#include <QLayout>

namespace velorama {
namespace {

const QString musicListName = QStringLiteral("mfrmPRGMAINAUD");
const QString pictureMask = QStringLiteral("*.bmp;*.jpg;*.gif");
const QString toolSettings = QStringLiteral("\\frmTOOLSSETTINGS\\Items");
const QString viewSettings = QStringLiteral("\\mfrmPRGMAIN\\View");
// A window closed on a later page comes back on the first.
constexpr int lastRestoredPage = 3;

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
    fillHelpPage();
    webAlbumPage_.load();
    controls_.lvwSLIDEBAR->setFont(QFont(QStringLiteral("Arial"), 7));
    if (services_.startUp) {
        services_.startUp(*this, commandLine);
    }
    mnutxt1_.start(menuBar(), {popups_.mnuFOUNDTOP, popups_.mnuSELECTEDTOP});
    ActiveList = QStringLiteral("SELECTED");
    controls_.lvwSLIDEBAR->hide();
    layout_.applyPageColour();
    setKeyHints(commands_);
    restoreFrame();
    restorePage();
    disableCommands();
    const QString albumPath =
        commandLine.isEmpty()
            ? withoutOuterBlanks(loadSetting(viewSettings, QStringLiteral("Slideshow"), QString()))
            : commandLine;
    album_.setUnmodified();
    appear();
    controls_.flbFOUND.setPattern(pictureMask);
    DoEvents();
    DoEvents();
    loadLists(albumPath);
    showFirst();
    setScreenPointer(ScreenPointer::Default);
    controls_.lvwSLIDEBAR->show();
    VBarLayout();
    DoEvents();
    Form_Resize();
    FormLoading = false;
    controls_.ftvFOLDER->setPath(
        loadSetting(toolSettings, QStringLiteral("Files Location"), firstFolder()));
}

void mfrmPRGMAIN::fillHelpPage() {
    controls_.lblMAINTITLE->setText(libTxt.ProductName);
    controls_.lblCOPYRIGHT->setText(libTxt.LegalLine);
    controls_.lblVERSION->setText(libTxt.VersionText);
    const QSize size = controls_.imgICON->size();
    controls_.imgICON->setPixmap(popups_.Icon().pixmap(size, devicePixelRatioF()));
}

void mfrmPRGMAIN::restoreFrame() {
    gRegistry->FormDimensionsSetup(*this, true);
    // A window that has not been shown has not laid itself out; what follows needs its inner size.
    layout()->setGeometry(rect());
    const QString splitter =
        loadSetting(toolSettings, QStringLiteral("Splitter Bar Left"), QStringLiteral("3585"));
    if (const auto left = decimalNumber(splitter)) {
        setLeft(*controls_.picVBAR, static_cast<float>(*left));
    }
}

void mfrmPRGMAIN::restorePage() {
    const QString stored = loadSetting(viewSettings, QStringLiteral("TABIDX"), QStringLiteral("1"));
    if (const auto number = wholeNumber(stored)) {
        showPage(*number);
    }
    const int shown = controls_.tabPAGES->ActiveTab();
    if (shown <= 0 || shown > lastRestoredPage) {
        showPage(1);
    }
    tabPAGES_Click(decimalText(controls_.tabPAGES->ActiveTab()));
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
    albums_.SlideshowListLoad(*controls_.lvwALBUMS, albumListName);
    audio_.list.ListboxLoad(*controls_.music.lstMUSIC, musicListName);
    listsLoaded_ = true;
    albums_.AlbumListSelect(albumPath);
    album_.openAtStart(albumPath);
}

void mfrmPRGMAIN::showFirst() {
    ActiveList = QStringLiteral("SELECTED");
    slides_.selectFirstSlide();
    ActiveList = QStringLiteral("SELECTED");
}

void mfrmPRGMAIN::Form_QueryUnload(bool& Cancel) {
    SaveCancelled = false;
    Cancel = false;
    if (commands_.save.isEnabled()) {
        const int answer = gStatus->MessageBoxQuestionOpen(6, album_.Tag());
        if (answer == AnswerCancel) {
            Cancel = true;
        } else if (answer == AnswerYes) {
            album_.mnuFILESAVE_Click();
            Cancel = SaveCancelled;
        }
    }
    if (!listsLoaded_) {
        return;  // Closed while it comes up: empty lists would take the place of those stored.
    }
    audio_.list.ListboxSave(*controls_.music.lstMUSIC, musicListName);
    albums_.SlideshowListSave(*controls_.lvwALBUMS, albumListName);
}

void mfrmPRGMAIN::Form_Unload() {
    unloaded_ = true;
    audio_.closeDevice();
    controls_.music.tmrMUSIC->stop();
    found_.stop();
    slides_.stop();
    album_.stop();
    webAlbum_.stop();
    saveSetting(viewSettings, QStringLiteral("TABIDX"),
                decimalText(controls_.tabPAGES->ActiveTab()));
    slides_.SELECTIONSAVE();
    gRegistry->FormDimensionsSave(*this, true);
    saveSetting(toolSettings, QStringLiteral("Splitter Bar Left"),
                singleText(Left(*controls_.picVBAR)));
    webAlbumPage_.save();
    mnutxt1_.stop();
    closeModalForms();
    helpCenter_.unload();
    if (settings_ && !settings_->isUnloaded()) {
        delete settings_;
    }
    if (show_) {
        show_->Unload();
    }
    hide();
    QCoreApplication::quit();
}

}  // namespace velorama
