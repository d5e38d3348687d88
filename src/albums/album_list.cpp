#include "albums/album_list.h"

#include "albums/album_fields.h"
#include "controls/input/keys.h"
#include "core/globals.h"
#include "core/stored_list.h"
#include "platform/process/events.h"
#include "platform/session/shell.h"

#include <QHash>
#include <QPointer>
#include <QSet>
#include <QTimer>

#include <chrono>
#include <memory>

namespace velorama {
namespace {

const QString folderKey = QStringLiteral("mfrmPRGMAIN\\Details");
const QString folderName = QStringLiteral("CMD Open Folder");

// Many times what a disk takes that is awake.
constexpr std::chrono::milliseconds longestWait{500};

StoredList stored(const ReportView& list, const QString& key) {
    return {.key = key, .name = list.Name(), .first = 1};
}

/// What has no file is called by its whole path.
void showMissing(ReportItem& item) {
    item.setText(0, item.Key());
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
    fill(List, albums);
    const auto isKnown = std::make_shared<bool>(false);
    const auto take = [this, isKnown, albums, list = QPointer(&List),
                       load = ++loads_](const QStringList& notes) {
        if (list && load == loads_) {
            takeNotes(*list, albums, notes);
        }
        *isKnown = true;
    };
    looks_.ask([albums, take] { return [take, notes = notesOf(albums)] { take(notes); }; });
    QTimer limit;
    limit.setSingleShot(true);
    limit.start(longestWait);
    DoEventsUntil([&] { return *isKnown || !limit.isActive(); });
}

QStringList AlbumList::notesOf(const QStringList& albums) {
    QStringList notes;
    for (const QString& path : albums) {
        // The program's own may be gone where a thread is late.
        if (!clsFILEFOLDR().FileExists(path)) {
            break;
        }
        notes.append(albumHeader(path).note);
    }
    return notes;
}

/// With the notes that are known, for the time until they have been read.
void AlbumList::fill(ReportView& list, const QStringList& albums) {
    QHash<QString, QString> known;
    for (int i = 1; i <= list.Count(); ++i) {
        known.insert(list.item(i)->Key(), list.item(i)->SubItems(1));
    }
    list.Clear();
    for (const QString& path : albums) {
        if (ReportItem* item = addAlbum(path)) {
            item->setSubItems(1, known.value(path));
        }
    }
}

/// Events have run since the list was filled: what is not there any more is passed over.
void AlbumList::takeNotes(ReportView& list, const QStringList& albums, const QStringList& notes) {
    for (qsizetype i = 0; i < notes.size(); ++i) {
        if (ReportItem* item = list.item(albums[i])) {
            item->setSubItems(1, notes[i]);
        }
    }
    if (notes.size() < albums.size()) {
        endWithMissing(list, albums, notes.size());
    }
}

/// The albums behind one that has gone are not read, and the next save forgets them.
void AlbumList::endWithMissing(ReportView& list, const QStringList& albums, qsizetype missing) {
    const QSet<QString> read(albums.begin(), albums.begin() + missing + 1);
    bool isSelectedGone = false;
    for (const QString& path : albums.sliced(missing + 1)) {
        const ReportItem* item = read.contains(path) ? nullptr : list.item(path);
        if (item != nullptr) {
            isSelectedGone = isSelectedGone || item->Selected();
            list.Remove(item->Index());
        }
    }
    if (ReportItem* item = list.item(albums[missing])) {
        showMissing(*item);
        item->setSubItems(1, QString());
        if (isSelectedGone) {
            item->setSelected(true);
        }
    }
}

/// At the end, and selected; null if the list refuses the path. Called by its name, whether there
/// is a file or not.
ReportItem* AlbumList::addAlbum(const QString& path) {
    ReportItem* item = c_.lvwALBUMS->Add(path, gFileFoldr->FileNameFromPath(path, true));
    if (item != nullptr) {
        item->setSelected(true);
    }
    return item;
}

bool AlbumList::AlbumKnown(const QString& Path) const {
    return c_.lvwALBUMS->item(Path) != nullptr;
}

void AlbumList::AlbumListAdd(const QString& Path) {
    if (AlbumKnown(Path)) {
        emit JoinedAgain();
    } else if (addAlbum(Path)) {
        // Another thread looks: this one would wait for a disk that sleeps.
        looks_.ask([this, Path]() -> SlowLooks::Answer {
            const bool isThere = clsFILEFOLDR().FileExists(Path);
            return [this, Path, isThere] {
                ReportItem* item = isThere ? nullptr : c_.lvwALBUMS->item(Path);
                if (item != nullptr) {
                    showMissing(*item);
                }
            };
        });
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

void AlbumList::remove(const QString& path) {
    if (const ReportItem* item = c_.lvwALBUMS->item(path)) {
        c_.lvwALBUMS->Remove(item->Index());
    }
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
