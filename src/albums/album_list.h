#pragma once

#include "albums/album_controls.h"
#include "controls/dialogs/common_dialog.h"

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
    /// whose file is missing is the last one read.
    void SlideshowListLoad(ReportView& List, const QString& KeyName);
    void SlideshowListSave(const ReportView& List, const QString& KeyName) const;
    /// The same under the name that the main form gives its list.
    void load() { SlideshowListLoad(*c_.lvwALBUMS, albumListName); }
    void save() const { SlideshowListSave(*c_.lvwALBUMS, albumListName); }
    void AlbumListAdd(const QString& Path);
    bool AlbumKnown(const QString& Path) const;
    void AlbumListSelect(const QString& Path);

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
    ReportItem* addAlbum(const QString& path);

    const AlbumControls& c_;
    CommonDialog& cdlDIALOG_;
};

}  // namespace velorama
