#include "albums/album_list.h"

#include "albums/album_fields.h"
#include "controls/input/keys.h"
#include "core/globals.h"
#include "core/stored_list.h"
#include "platform/session/shell.h"

#include <QPointer>

namespace velorama {
namespace {

const QString folderKey = QStringLiteral("mfrmPRGMAIN\\Details");
const QString folderName = QStringLiteral("CMD Open Folder");

StoredList stored(const ReportView& list, const QString& key) {
    return {.key = key, .name = list.Name(), .first = 1};
}

QStringList paths(const ReportView& list) {
    QStringList all;
    for (int i = 1; i <= list.Count(); ++i) {
        all.append(list.item(i)->Key());
    }
    return all;
}

}  // namespace

AlbumList::AlbumList(const AlbumControls& controls, CommonDialog& cdlDIALOG)
    : c_(controls), cdlDIALOG_(cdlDIALOG) {
    connect(c_.lvwALBUMS, &ReportView::DblClick, this, &AlbumList::lvwALBUMS_DblClick);
    connect(c_.lvwALBUMS, &ReportView::KeyPress, this, [this](int keyAscii) {
        if (keyAscii == KeyReturn) {
            lvwALBUMS_DblClick();
        }
    });
    connect(c_.btnADD, &cbtn::clicked, this, &AlbumList::btnADD_Click);
    connect(c_.btnREMOVE, &cbtn::clicked, this, &AlbumList::btnREMOVE_Click);
    connect(c_.btnView, &cbtn::clicked, this, &AlbumList::lvwALBUMS_DblClick);
}

void AlbumList::SlideshowListSave(const ReportView& List, const QString& KeyName) const {
    stored(List, KeyName).save(paths(List));
}

void AlbumList::SlideshowListLoad(ReportView& List, const QString& KeyName) {
    const QStringList albums = stored(List, KeyName).load(paths(List));
    List.Clear();
    for (const QString& path : albums) {
        ReportItem* item = addAlbum(path);
        // The albums behind one that has gone are not read, and the next save forgets them.
        if (!gFileFoldr->FileExists(path)) {
            return;
        }
        if (item != nullptr) {
            item->setSubItems(1, albumHeader(path).note);
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
    } else {
        emit JoinedAgain();
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
    CommonDialog& dialog = cdlDIALOG_;
    dialog.InitDir = loadSetting(folderKey, folderName, applicationFolder());
    dialog.StandIn = QStandardPaths::DocumentsLocation;
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

void AlbumList::lvwALBUMS_DblClick() {
    const ReportItem* item = c_.lvwALBUMS->SelectedItem();
    // A copy: saving reads the list anew.
    const QString path = item != nullptr ? item->Key() : QString();
    emit OpenAsked(path);
}

}  // namespace velorama
