#include "music/music_list.h"

#include "core/globals.h"
#include "core/stored_list.h"
#include "platform/session/shell.h"

namespace velorama {
namespace {

const QString folderKey = QStringLiteral("mfrmPRGMAIN\\Details");
const QString folderName = QStringLiteral("CMD Open FolderMP3");
// Several files, explorer style, no read-only box, prompt on overwrite.
constexpr int SeveralFiles = 524806;
const QString musicFilter = QStringLiteral(
    "All Files (*.mp3; *.mid; *.wav)|*.mp3; *.mid; *.wav|"
    "mp3 Files|*.mp3|Wav Files|*.wav|Midi Files|*.mid");

bool isMusic(const QString& path) {
    static const QStringList endings = {QStringLiteral(".mp3"), QStringLiteral(".wav"),
                                        QStringLiteral(".mid")};
    return endings.contains(path.right(4));
}

StoredList stored(const ListBox& list, const QString& key) {
    return {.key = key, .name = list.objectName()};
}

QStringList rows(const ListBox& list) {
    QStringList all;
    for (int row = 0; row < list.ListCount(); ++row) {
        all.append(list.List(row));
    }
    return all;
}

}  // namespace

MusicList::MusicList(const MusicControls& controls, CommonDialog& cdlDIALOG)
    : c_(controls), cdlDIALOG_(cdlDIALOG) {}

void MusicList::enableRestart(bool enabled) const {
    c_.cbtnAUDIO[2]->setEnabled(enabled);
}

/// Full paths in the dialog's order, none if it was cancelled.
QStringList MusicList::chooseFiles() {
    cdlDIALOG_.InitDir = loadSetting(folderKey, folderName, applicationFolder());
    cdlDIALOG_.StandIn = QStandardPaths::MusicLocation;
    cdlDIALOG_.Filter = musicFilter;
    cdlDIALOG_.FilterIndex = 1;
    cdlDIALOG_.DialogTitle = QStringLiteral("Browse for music files");
    cdlDIALOG_.Flags = SeveralFiles;
    cdlDIALOG_.FileName.clear();
    gDlgHook->subCMNDLGHOOKOPEN();
    cdlDIALOG_.ShowOpen();
    gDlgHook->subCMNDLGHOOKCLOSE();
    return cdlDIALOG_.FileNames();
}

void MusicList::MusicBrowse() {
    for (const QString& path : chooseFiles()) {
        saveSetting(folderKey, folderName, gFileFoldr->FolderPathFromFilename(path));
        c_.lstMUSIC->addItem(path);
        enableRestart(true);
    }
    c_.lblFile->setCaption(c_.lstMUSIC->List(0));
}

void MusicList::MusicDrop(const QStringList& paths) {
    QStringList music;
    for (const QString& path : paths) {
        const QString lower = path.toLower();
        if (isMusic(lower)) {
            music.append(lower);
        }
    }
    if (!music.isEmpty()) {
        c_.lstMUSIC->addItems(music);
        enableRestart(true);
        // Once: a list in sight is laid out anew for it, all its rows.
        c_.lstMUSIC->setListIndex(c_.lstMUSIC->ListCount() - 1);
    }
}

void MusicList::removeRow() {
    if (c_.lstMUSIC->ListCount() > 0 && c_.lstMUSIC->ListIndex() < 0) {
        c_.lstMUSIC->setListIndex(c_.lstMUSIC->ListCount() - 1);
    }
    c_.lstMUSIC->RemoveItem(c_.lstMUSIC->ListIndex());
}

/// The selection travels with the row. Without a row there is nothing to exchange, and it only
/// moves.
void MusicList::exchangeWith(int offset) {
    ListBox& list = *c_.lstMUSIC;
    const int row = list.ListIndex();
    if (row >= 0) {
        const QString text = list.List(row);
        list.setList(row, list.List(row + offset));
        list.setList(row + offset, text);
    }
    list.setListIndex(row + offset);
}

void MusicList::Command1_Click() {
    if (c_.lstMUSIC->ListIndex() > 0) {
        exchangeWith(-1);
    }
}

void MusicList::Command2_Click() {
    if (c_.lstMUSIC->ListIndex() < c_.lstMUSIC->ListCount() - 1) {
        exchangeWith(1);
    }
}

void MusicList::ListboxSave(const ListBox& list, const QString& name) const {
    stored(list, name).save(rows(list));
}

void MusicList::ListboxLoad(ListBox& list, const QString& name) const {
    const QStringList paths = stored(list, name).load(rows(list));
    list.clear();
    for (const QString& path : paths) {
        list.addItem(path);
    }
    enableRestart(!paths.isEmpty());
}

}  // namespace velorama
