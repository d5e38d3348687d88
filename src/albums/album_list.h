#pragma once

#include "controls/dialogs/common_dialog.h"
#include "controls/lists/report_view.h"

#include <QAbstractButton>
#include <QAction>
#include <QObject>

#include <functional>

namespace velorama {

/// Key text under which the list of known albums lies in the settings.
inline const QString albumListName = QStringLiteral("mfrmPRGMAIN");

/// What the album list asks of the window: the open album and the commands of the slide list.
struct AlbumListCalls {
    /// Path of the open album, the main form's Tag; empty for none.
    std::function<QString()> AlbumPath;
    std::function<bool()> isModified;
    std::function<void()> mnuFILESAVE_Click;
    /// Opens an album that exists: New, read, Tag, caption, first slide, flag off.
    std::function<void(const QString& path)> openAlbum;
};

/// The page of known albums: the list in lvwALBUMS, its copy in the settings, and its three
/// buttons.
class AlbumList : public QObject {
    Q_OBJECT
public:
    /// The controls must outlive this object; the events of the list and the buttons are taken
    /// over here. A button that is null is a step that does nothing.
    struct Controls {
        ReportView* lvwALBUMS = nullptr;
        QAbstractButton* btnADD = nullptr;
        QAbstractButton* btnREMOVE = nullptr;
        QAbstractButton* btnView = nullptr;
        CommonDialog* cdlDIALOG = nullptr;
    };
    AlbumList(const Controls& controls, AlbumListCalls calls, QObject* parent = nullptr);

    /// Reads the list back from the settings, with the note of each album file. The first album
    /// whose file is missing is the last one read.
    void SlideshowListLoad(ReportView& List, const QString& KeyName);
    void SlideshowListSave(const ReportView& List, const QString& KeyName) const;
    void AlbumListAdd(const QString& Path);
    bool AlbumKnown(const QString& Path) const;
    void AlbumListSelect(const QString& Path);

    void btnADD_Click();
    void btnREMOVE_Click();
    /// btnView, a double click and Enter.
    void lvwALBUMS_DblClick();

private:
    void connectButton(QAbstractButton* button, void (AlbumList::*handler)());
    ReportItem* addAlbum(const QString& path);
    bool mayLeaveAlbum();

    Controls c_;
    AlbumListCalls calls_;
};

}  // namespace velorama
