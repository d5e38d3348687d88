#include "music/music_list.h"

#include "core/globals.h"
#include "core/long_text.h"
#include "platform/numbers.h"
#include "platform/session/shell.h"

#include <algorithm>

namespace velorama {
namespace {

const QString folderKey = QStringLiteral("mfrmPRGMAIN\\Details");
const QString folderName = QStringLiteral("CMD Open FolderMP3");
// Several files, explorer style, no read-only box, prompt on overwrite.
constexpr int SeveralFiles = 524806;
// A damaged count must not keep the start waiting. No list comes near this.
constexpr int MostRows = 1000000;
const QString musicFilter = QStringLiteral(
    "All Files (*.mp3; *.mid; *.wav)|*.mp3; *.mid; *.wav|"
    "mp3 Files|*.mp3|Wav Files|*.wav|Midi Files|*.mid");

QString totalKey(const QString& name) {
    return name + QStringLiteral("\\Items Total");
}
QString totalName(const ListBox& list) {
    return list.objectName() + QStringLiteral("List Total");
}
QString detailsKey(const QString& name) {
    return name + QStringLiteral("\\Details");
}
QString rowName(const ListBox& list, int row) {
    return list.objectName() + decimalText(row);
}

bool isMusic(const QString& path) {
    static const QStringList endings = {QStringLiteral(".mp3"), QStringLiteral(".wav"),
                                        QStringLiteral(".mid")};
    return endings.contains(path.right(4));
}

/// Without the blanks at its ends; tabs and line breaks are part of a path.
QString withoutBlanks(const QString& text) {
    qsizetype first = 0;
    qsizetype last = text.size();
    while (first < last && text[first] == u' ') {
        ++first;
    }
    while (last > first && text[last - 1] == u' ') {
        --last;
    }
    return text.mid(first, last - first);
}

QString storedRow(const ListBox& list, const QString& name, int row) {
    return withoutBlanks(loadSetting(detailsKey(name), rowName(list, row), QString()));
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
        c_.lstMUSIC->AddItem(path);
        enableRestart(true);
    }
    c_.lblFile->setCaption(c_.lstMUSIC->List(0));
}

void MusicList::MusicDrop(const QStringList& paths) {
    for (const QString& path : paths) {
        const QString lower = path.toLower();
        if (isMusic(lower)) {
            c_.lstMUSIC->AddItem(lower);
            enableRestart(true);
            c_.lstMUSIC->setListIndex(c_.lstMUSIC->ListCount() - 1);
        }
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
    saveSetting(totalKey(name), totalName(list), decimalText(list.ListCount()));
    for (int row = 0; row < list.ListCount(); ++row) {
        saveSetting(detailsKey(name), rowName(list, row), list.List(row));
    }
}

void MusicList::ListboxLoad(ListBox& list, const QString& name) const {
    const QHash<int, QString> kept = pathsOnlyInList(
        detailsKey(name), 0, list.ListCount() - 1, [&list](int row) { return rowName(list, row); },
        [&list](int row) { return list.List(row); });
    list.Clear();
    enableRestart(false);
    const QString total = loadSetting(totalKey(name), totalName(list), QStringLiteral("0"));
    const int count = std::min(wholeNumber(total).value_or(0), MostRows);
    for (int row = 0; row < count; ++row) {
        const QString text = kept.contains(row) ? kept.value(row) : storedRow(list, name, row);
        if (!text.isEmpty()) {
            list.AddItem(text);
            enableRestart(true);
        }
    }
}

}  // namespace velorama
