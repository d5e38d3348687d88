#include "albums/album_file.h"

#include "core/documents.h"
#include "core/globals.h"
#include "core/lib_txt.h"
#include "platform/numbers.h"
#include "platform/process/await_work.h"
#include "platform/session/shell.h"

#include <QPointer>

namespace velorama {
namespace {

const QString viewKey = QStringLiteral("mfrmPRGMAIN\\View");
const QString albumName = QStringLiteral("Slideshow");
const QString folderKey = QStringLiteral("mfrmPRGMAIN\\Details");
const QString folderName = QStringLiteral("CMD Open Folder");
const QString albumKinds = QStringLiteral("Velorama Album Files (*.vlr)|*.vlr|All Files|*.*");
constexpr int albumFlags = FlagOverwritePrompt + FlagHideReadOnly + FlagExplorer;

constexpr qint32 saveQuestion = 6;
constexpr qint32 cannotOpen = 8;

const QString separator = QStringLiteral(" - ");
const QString lineEnd = QStringLiteral("\r\n");

}  // namespace

AlbumFile::AlbumFile(const SlideControls& controls, Commands& commands, CommonDialog& cdlDIALOG,
                     SlideList& slides, Thumbnails& thumbnails, AlbumList& albums)
    : c_(controls),
      commands_(commands),
      cdlDIALOG_(cdlDIALOG),
      slides_(slides),
      thumbnails_(thumbnails),
      albums_(albums),
      open_(slides.history().album()) {
    connectCommands();
    connectHistory();
    connect(&albums, &AlbumList::OpenAsked, this, &AlbumFile::openAsked);
}

void AlbumFile::connectCommands() {
    const auto on = [this](const Command& command, void (AlbumFile::*handler)()) {
        connect(&command, &Command::triggered, this, handler);
    };
    on(commands_.newAlbum, &AlbumFile::mnuFILENEW_Click);
    on(commands_.open, &AlbumFile::mnuFILEOPEN_Click);
    on(commands_.save, &AlbumFile::mnuFILESAVE_Click);
    on(commands_.saveAs, &AlbumFile::mnuFILESAVEAS_Click);
}

void AlbumFile::connectHistory() {
    open_ = {.caption = captionOf(QString())};
    connect(&slides_.history(), &SlideHistory::Arrived, this, [this](bool album) {
        if (album) {
            emit CaptionChanged(open_.caption);
            saveSetting(viewKey, albumName, open_.remembered);
            albums_.AlbumListSelect(open_.path);
        }
    });
}

QString AlbumFile::captionOf(const QString& path) const {
    return path.isEmpty() ? libTxt.ProductName : QString(path + separator + libTxt.ProductName);
}

void AlbumFile::setCaption(const QString& caption) {
    open_.caption = caption;
    emit CaptionChanged(caption);
}

void AlbumFile::remember(const QString& path) {
    open_.remembered = path;
    saveSetting(viewKey, albumName, path);
}

void AlbumFile::setUnmodified() {
    slides_.forgetUnmarked();
    commands_.save.setEnabled(false);
}

void AlbumFile::setSaved() {
    setUnmodified();
    slides_.history().saved();
}

/// False if the user chose no file.
bool AlbumFile::choose(bool save) {
    CommonDialog& dialog = cdlDIALOG_;
    dialog.FileName.clear();
    dialog.StandIn = QStandardPaths::DocumentsLocation;
    dialog.Filter = albumKinds;
    dialog.Flags = albumFlags;
    dialog.CancelError = true;
    gDlgHook->subCMNDLGHOOKOPEN();
    const bool chosen = save ? dialog.ShowSave() : dialog.ShowOpen();
    gDlgHook->subCMNDLGHOOKCLOSE();
    return chosen;
}

void AlbumFile::joinAlbumList(const QString& path) {
    const QString joins = loadSetting(QStringLiteral("frmTOOLSSETTINGS"),
                                      QStringLiteral("projectlist"), QStringLiteral("1"));
    if (decimalNumber(joins) == 1.0) {
        albums_.AlbumListAdd(path);
    }
}

void AlbumFile::takeTurn(const std::function<void()>& command) {
    slides_.history().forgetWaiting();
    turn_.runLast([this, command] {
        // A window that is closed has saved all that lasts: its album is no other one any more.
        if (!stopped_) {
            const SlideHistory::Recording step(slides_.history());
            command();
        }
    });
}

void AlbumFile::mnuFILENEW_Click() {
    takeTurn([this] { makeNew(); });
}

void AlbumFile::makeNew() {
    slides_.empty();
    open_.path.clear();
    setCaption(captionOf(open_.path));
    slides_.selectFirstSlide();
    slides_.lvwSLIDEBAR_Click();
    remember(QString());
    slides_.SelectChk();
    slides_.FoundButtonsCheck();
    setUnmodified();
}

void AlbumFile::mnuFILEOPEN_Click() {
    const QPointer<AlbumFile> self = this;
    cdlDIALOG_.InitDir = loadSetting(folderKey, folderName, applicationFolder());
    cdlDIALOG_.DialogTitle = QStringLiteral("Open");
    if (!choose(false) || !self) {
        return;
    }
    const QString file = cdlDIALOG_.FileName;
    if (turn_.isRunning()) {
        // A later choice may come in its place, and it was opened all the same.
        joinAlbumList(file);
    }
    takeTurn([this, file] { open(file); });
}

void AlbumFile::open(const QString& file) {
    const QPointer<AlbumFile> self = this;
    makeNew();
    joinAlbumList(file);
    read(file);
    if (!self) {
        return;
    }
    saveSetting(folderKey, folderName, gFileFoldr->FolderPathFromFilename(file));
    remember(file);
    albums_.AlbumListSelect(file);
    slides_.selectFirstSlide();
    slides_.lvwSLIDEBAR_Click();
    slides_.FoundButtonsCheck();
    slides_.SelectChk();
}

/// Reads the album and makes it the open one.
void AlbumFile::read(const QString& path) {
    const QPointer<AlbumFile> self = this;
    DocumentOpenText(path);
    if (self) {
        open_.path = path;
        setCaption(captionOf(open_.path));
    }
}

bool AlbumFile::mayLeaveAlbum() {
    SaveCancelled = false;
    const QPointer<AlbumFile> self = this;
    // Events run in a save: what has been done to the slides then is asked about once more.
    while (isModified()) {
        const qint32 answer = gStatus->MessageBoxQuestionOpen(saveQuestion, open_.path);
        if (!self || answer == AnswerCancel) {
            return false;
        }
        if (answer != AnswerYes) {
            return true;
        }
        mnuFILESAVE_Click();
        if (!self || SaveCancelled) {
            return false;
        }
    }
    return true;
}

/// Whether an album is there, once the open one may be left; nothing if it is kept, or another
/// album was asked for meanwhile.
std::optional<bool> AlbumFile::mayLeaveFor(const QString& path) {
    const QPointer<AlbumFile> self = this;
    const int ask = ++asks_;
    // Of several that are asked for while a disk lets itself be waited for the last one counts.
    const auto left = [self, ask] { return !self || self->stopped_ || self->asks_ != ask; };
    std::optional<bool> isThere;
    qint64 seen = 0;
    do {
        if (!mayLeaveAlbum()) {
            return std::nullopt;
        }
        seen = c_.lvwSLIDEBAR->changes();
        isThere = awaitWork([path] { return clsFILEFOLDR().FileExists(path); }, left);
        if (left() || !isThere) {
            return std::nullopt;
        }
        // Nobody was asked about what has been done to the slides in that time.
    } while (isModified() && c_.lvwSLIDEBAR->changes() != seen);
    return isThere;
}

void AlbumFile::openAsked(const QString& path) {
    const QPointer<AlbumFile> self = this;
    const std::optional<bool> isThere = mayLeaveFor(path);
    if (!self || !isThere) {
        return;
    }
    if (*isThere) {
        openFromList(path);
        return;
    }
    gStatus->MessageBoxOpen(cannotOpen, path);
    if (self) {
        albums_.remove(path);
    }
}

void AlbumFile::openFromList(const QString& path) {
    takeTurn([this, path] { openKnown(path); });
}

void AlbumFile::openKnown(const QString& path) {
    const QPointer<AlbumFile> self = this;
    makeNew();
    read(path);
    if (!self) {
        return;
    }
    remember(path);
    slides_.selectFirstSlide();
    slides_.SelectChk();
    slides_.FoundButtonsCheck();
    setUnmodified();
}

void AlbumFile::openAtStart(const QString& path) {
    open_.path.clear();
    open_.remembered = loadSetting(viewKey, albumName, QString());
    if (!path.isEmpty()) {
        turn_.run([this, path] { openLast(path); });
    }
}

void AlbumFile::openLast(const QString& path) {
    const QPointer<AlbumFile> self = this;
    DocumentOpenText(path);
    if (!self) {
        return;
    }
    open_.path = path;
    // Other than after an Open, the name comes first.
    setCaption(libTxt.ProductName + separator + path);
    joinAlbumList(path);
}

/// The album's text in UTF-8 with line ends, but for the one that closes every document.
QByteArray AlbumFile::text(const QString& firstLine) const {
    // Characters. Some hundred lines are converted at a time: one would cost a block of memory
    // each, and all of them memory that the system has to clear first.
    constexpr qsizetype part = 32LL * 1024;
    const int count = c_.lvwSLIDEBAR->Count();
    QString lines = firstLine + lineEnd;
    qsizetype size = lines.size() + lineEnd.size();
    for (int i = 1; i <= count; ++i) {
        size += c_.lvwSLIDEBAR->item(i)->Key().size() + lineEnd.size();
    }
    QByteArray content;
    content.reserve(size);
    lines.reserve(part + part / 8);
    for (int i = 1; i <= count; ++i) {
        if (lines.size() >= part) {
            content += lines.toUtf8();
            lines.resize(0);
        }
        lines += c_.lvwSLIDEBAR->item(i)->Key();
        lines += lineEnd;
    }
    return content += lines.toUtf8();
}

/// What such an album holds is only replaced by those who name it in Save As, which asks.
bool AlbumFile::wouldReplaceUnread() const {
    return !open_.isRead && gFileFoldr->FileExists(open_.path);
}

void AlbumFile::mnuFILESAVE_Click() {
    const QPointer<AlbumFile> self = this;
    if (open_.path.isEmpty() || wouldReplaceUnread()) {
        mnuFILESAVEAS_Click();
    } else {
        const QString count = decimalText(c_.lvwSLIDEBAR->Count());
        DocumentSaveBytes(text(count + QLatin1Char('|') + open_.note + QLatin1Char(' ')),
                          open_.path);
        // A disk that comes back may still hold the album that was not read.
        open_.isRead = open_.isRead || gFileFoldr->FileExists(open_.path);
        setCaption(captionOf(open_.path));
        setSaved();
        albums_.AlbumListAdd(open_.path);
    }
    if (self) {
        albums_.save();
        albums_.load();
    }
}

void AlbumFile::mnuFILESAVEAS_Click() {
    SaveCancelled = true;
    const QPointer<AlbumFile> self = this;
    const QByteArray content = text(decimalText(c_.lvwSLIDEBAR->Count()));
    cdlDIALOG_.DialogTitle = QStringLiteral("Save");
    if (!choose(true) || !self) {
        return;
    }
    const QString file = cdlDIALOG_.FileName;
    DocumentSaveBytes(content, file);
    open_.path = file;
    open_.isRead = true;
    setCaption(captionOf(open_.path));
    joinAlbumList(open_.path);
    remember(open_.path);
    setSaved();
    SaveCancelled = false;
}

}  // namespace velorama
