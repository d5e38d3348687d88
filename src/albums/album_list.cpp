#include "albums/album_list.h"

#include "controls/input/keys.h"
#include "core/documents.h"
#include "core/globals.h"
#include "core/long_text.h"
#include "platform/files/paths.h"
#include "platform/numbers.h"
#include "platform/session/shell.h"

#include <QFile>
#include <QPointer>

#include <algorithm>

namespace velorama {
namespace {

const QString folderKey = QStringLiteral("mfrmPRGMAIN\\Details");
const QString folderName = QStringLiteral("CMD Open Folder");
constexpr qint32 saveQuestion = 6;
constexpr qint32 cannotOpen = 8;
// A damaged count must not keep the start waiting. No list comes near this.
constexpr int MostAlbums = 1000000;
// An album may be of any size, and a file named in the list need not be an album.
constexpr qint64 MostHeaderBytes = 64LL * 1024;

QString totalKey(const QString& name) {
    return name + QStringLiteral("\\Items Total");
}
QString totalName(const ReportView& list) {
    return list.Name() + QStringLiteral("List Total");
}
QString detailsKey(const QString& name) {
    return name + QStringLiteral("\\Details");
}
QString albumName(const ReportView& list, int index) {
    return list.Name() + decimalText(index);
}

QString storedAlbum(const ReportView& list, const QString& key, int index) {
    return withoutOuterBlanks(loadSetting(detailsKey(key), albumName(list, index), QString()));
}

/// What stands behind the bar in the album's first field.
QString albumNote(const QString& path) {
    const QString bar = QStringLiteral("|");
    QFile file(hostFile(path));
    if (!file.open(QIODevice::ReadOnly)) {
        return QString();
    }
    const QString header = FieldReader(file.read(MostHeaderBytes)).Input();
    return header.contains(bar) ? StringPieceArr(header, bar, 1) : QString();
}

}  // namespace

AlbumList::AlbumList(const Controls& controls, AlbumListCalls calls, QObject* parent)
    : QObject(parent), c_(controls), calls_(std::move(calls)) {
    connect(c_.lvwALBUMS, &ReportView::DblClick, this, &AlbumList::lvwALBUMS_DblClick);
    connect(c_.lvwALBUMS, &ReportView::KeyPress, this, [this](int keyAscii) {
        if (keyAscii == KeyReturn) {
            lvwALBUMS_DblClick();
        }
    });
    connectButton(c_.btnADD, &AlbumList::btnADD_Click);
    connectButton(c_.btnREMOVE, &AlbumList::btnREMOVE_Click);
    connectButton(c_.btnView, &AlbumList::lvwALBUMS_DblClick);
}

void AlbumList::connectButton(QAbstractButton* button, void (AlbumList::*handler)()) {
    if (button != nullptr) {
        connect(button, &QAbstractButton::clicked, this, handler);
    }
}

void AlbumList::SlideshowListSave(const ReportView& List, const QString& KeyName) const {
    const int count = List.Count();
    saveSetting(totalKey(KeyName), totalName(List), decimalText(count));
    for (int i = 1; i <= count; ++i) {
        saveSetting(detailsKey(KeyName), albumName(List, i), List.item(i)->Key());
    }
}

void AlbumList::SlideshowListLoad(ReportView& List, const QString& KeyName) {
    const QHash<int, QString> kept = pathsOnlyInList(
        detailsKey(KeyName), 1, List.Count(), [&List](int i) { return albumName(List, i); },
        [&List](int i) { return List.item(i)->Key(); });
    List.Clear();
    const QString total = loadSetting(totalKey(KeyName), totalName(List), QStringLiteral("0"));
    const int count = std::min(wholeNumber(total).value_or(0), MostAlbums);
    for (int i = 1; i <= count; ++i) {
        const QString path = kept.contains(i) ? kept.value(i) : storedAlbum(List, KeyName, i);
        if (path.isEmpty()) {
            continue;
        }
        ReportItem* item = addAlbum(path);
        // The albums behind one that has gone are not read, and the next save forgets them.
        if (!gFileFoldr->FileExists(path)) {
            return;
        }
        if (item != nullptr) {
            item->setSubItems(1, albumNote(path));
        }
    }
}

/// At the end, and selected; null if the list refuses the path.
ReportItem* AlbumList::addAlbum(const QString& path) {
    ReportItem* item = c_.lvwALBUMS->Add(path, gFileFoldr->FileNameFromPath(path, false));
    if (item != nullptr) {
        item->setSelected(true);
    }
    return item;
}

bool AlbumList::AlbumKnown(const QString& Path) const {
    return c_.lvwALBUMS->item(Path) != nullptr;
}

void AlbumList::AlbumListAdd(const QString& Path) {
    if (!AlbumKnown(Path)) {
        addAlbum(Path);
    }
}

void AlbumList::AlbumListSelect(const QString& Path) {
    if (ReportItem* item = c_.lvwALBUMS->item(Path)) {
        item->setSelected(true);
    }
}

/// A cancel is a failure only where another command has asked the shared dialog for it; otherwise
/// the handler goes on without a file: nothing joins the list, and the folder remembered is none.
void AlbumList::btnADD_Click() {
    if (c_.cdlDIALOG == nullptr) {
        return;
    }
    CommonDialog& dialog = *c_.cdlDIALOG;
    dialog.InitDir = loadSetting(folderKey, folderName, applicationFolder());
    dialog.DialogTitle = QStringLiteral("Insert a Slideshow album");
    dialog.Flags = FlagHideReadOnly + FlagExplorer + FlagLongNames;
    dialog.Filter = QStringLiteral("Velorama Album File (*.vlr)|*.vlr|All Files|*.*");
    // What another command has chosen in the shared dialog is not what a cancel goes on with.
    dialog.FileName.clear();

    const QPointer<AlbumList> self = this;
    gDlgHook->subCMNDLGHOOKOPEN();
    const bool chosen = dialog.ShowOpen();
    gDlgHook->subCMNDLGHOOKCLOSE();
    if (!chosen || !self) {
        return;
    }
    const QString file = dialog.FileName;
    const QString folder = gFileFoldr->FolderPathFromFilename(file);
    dialog.InitDir = folder;
    AlbumListAdd(file);
    saveSetting(folderKey, folderName, folder);
}

void AlbumList::btnREMOVE_Click() {
    if (const ReportItem* item = c_.lvwALBUMS->SelectedItem()) {
        c_.lvwALBUMS->Remove(item->Index());
    }
}

/// False if the user keeps the open album, by a cancel of the question or of Save As.
bool AlbumList::mayLeaveAlbum() {
    if (!calls_.isModified()) {
        return true;
    }
    const QPointer<AlbumList> self = this;
    const qint32 answer = gStatus->MessageBoxQuestionOpen(saveQuestion, calls_.AlbumPath());
    if (!self || answer == AnswerCancel) {
        return false;
    }
    if (answer == AnswerYes) {
        calls_.mnuFILESAVE_Click();
        return self && !SaveCancelled;
    }
    return true;
}

void AlbumList::lvwALBUMS_DblClick() {
    const ReportItem* item = c_.lvwALBUMS->SelectedItem();
    // A copy: saving reads the list anew.
    const QString path = item != nullptr ? item->Key() : QString();
    SaveCancelled = false;
    if (!mayLeaveAlbum()) {
        return;
    }
    if (gFileFoldr->FileExists(path)) {
        calls_.openAlbum(path);
        return;
    }
    const QPointer<AlbumList> self = this;
    gStatus->MessageBoxOpen(cannotOpen, path);
    if (self) {
        btnREMOVE_Click();
    }
}

}  // namespace velorama
