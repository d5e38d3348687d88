#pragma once

#include "albums/album_controls.h"
#include "controls/dialogs/common_dialog.h"
#include "platform/process/slow_looks.h"

#include <QObject>

namespace velorama {

/// Key text under which the list of known albums lies in the settings.
inline const QString albumListName = QStringLiteral("mfrmPRGMAIN");

/// The page of known albums: the list in lvwALBUMS, its copy in the settings, and its three
/// buttons.
class AlbumList : public QObject {
    Q_OBJECT
public:
    /// Both must outlive this object; the events of the list and the buttons are taken over here.
    AlbumList(const AlbumControls& controls, CommonDialog& cdlDIALOG);

    /// Reads the list back from the settings, with the note of each album file. The first album
    /// whose file is missing is the last one read. Other threads look at the files; events run
    /// until they have, or for half a second. On a disk that takes longer all albums stand there
    /// until it has answered.
    void SlideshowListLoad(ReportView& List, const QString& KeyName);
    void SlideshowListSave(const ReportView& List, const QString& KeyName) const;
    /// The same under the name that the main form gives its list.
    void load() { SlideshowListLoad(*c_.lvwALBUMS, albumListName); }
    void save() const { SlideshowListSave(*c_.lvwALBUMS, albumListName); }
    void AlbumListAdd(const QString& Path);
    bool AlbumKnown(const QString& Path) const;
    void AlbumListSelect(const QString& Path);
    /// Takes an album off the list, selected or not; nothing if it is not there.
    void remove(const QString& path);

    void btnADD_Click();
    void btnREMOVE_Click();
    /// btnView, a double click and Enter.
    void lvwALBUMS_DblClick();

signals:
    /// The user wants the selected album opened; its path is empty if none is selected.
    void OpenAsked(const QString& path);
    /// An album that is known already was opened or written; its file may have been missing.
    void JoinedAgain();

private:
    /// The notes of the albums up to the first whose file is missing.
    static QStringList notesOf(const QStringList& albums);

    ReportItem* addAlbum(const QString& path);
    void fill(ReportView& list, const QStringList& albums);
    void takeNotes(ReportView& list, const QStringList& albums, const QStringList& notes);
    static void endWithMissing(ReportView& list, const QStringList& albums, qsizetype missing);

    const AlbumControls& c_;
    CommonDialog& cdlDIALOG_;
    /// Loads so far: of several the last one counts.
    int loads_ = 0;
    SlowLooks looks_;
};

}  // namespace velorama
