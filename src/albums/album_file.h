#pragma once

#include "albums/album_list.h"
#include "albums/slide_list.h"
#include "platform/process/command_turn.h"

#include <QObject>
#include <QWidget>

#include <functional>
#include <optional>

namespace velorama {

class AlbumFields;
struct AlbumSlide;
class ComingSlides;

/// The album that is open, and the commands that make, read and write it.
class AlbumFile : public QObject {
    Q_OBJECT
public:
    /// What it is given must outlive this object. New, Open, Save and Save As are taken over here.
    AlbumFile(const SlideControls& controls, Commands& commands, CommonDialog& cdlDIALOG,
              SlideList& slides, Thumbnails& thumbnails, AlbumList& albums);

    /// Path of the open album, the main form's Tag; empty for none.
    QString Tag() const { return open_.path; }
    void setTag(const QString& path) { open_.path = path; }
    /// The note of the open album, the Tag of lvwALBUMS.
    QString note() const { return open_.note; }
    /// Save is on, or a running batch has brought slides and switches it on at its end.
    bool isModified() const { return commands_.save.isEnabled() || slides_.hasUnmarked(); }
    void setUnmodified();

    /// Reads an album into the slide list, one thumbnail a slide; events run after each. The last
    /// field read; empty if there is no such file. New, Open or an album of the list, chosen
    /// meanwhile, end the read at its next field and follow; of several the last.
    QString DocumentOpenText(const QString& Path);
    void mnuFILENEW_Click();
    void mnuFILEOPEN_Click();
    void mnuFILESAVE_Click();
    void mnuFILESAVEAS_Click();
    /// Asks whether unsaved changes are to be saved, and saves them. False if the user keeps the
    /// open album, by a cancel of the question or of Save As.
    bool mayLeaveAlbum();
    /// Opens an album of the list that exists.
    void openFromList(const QString& path);
    /// Part of the start: opens the album of the command line or of the last session.
    void openAtStart(const QString& path);
    /// The window is closing: a running read ends at its next field.
    void stop() { stopped_ = true; }

signals:
    /// What the main form is to be called from now on.
    void CaptionChanged(const QString& caption);

private:
    void connectCommands();
    void connectHistory();
    QString captionOf(const QString& path) const;
    void setCaption(const QString& caption);
    /// The album of the next start.
    void remember(const QString& path);
    void setSaved();
    bool choose(bool save);
    QByteArray text(const QString& firstLine) const;
    bool wouldReplaceUnread() const;
    /// If the settings let albums join it.
    void joinAlbumList(const QString& path);
    /// As one step for undo.
    void takeTurn(const std::function<void()>& command);
    void openAsked(const QString& path);
    std::optional<bool> mayLeaveFor(const QString& path);
    void read(const QString& path);
    void makeNew();
    void open(const QString& file);
    void openKnown(const QString& path);
    void openLast(const QString& path);

    // album_reading.cpp
    void beginReading();
    void endReading();
    QString readAlbum(std::optional<QByteArray> bytes);
    QString readSlides(AlbumFields& fields, const QString& count);
    void addSlide(const AlbumSlide& slide, const QString& picture);
    /// The window is closing, or another command has taken the place of the read that runs.
    bool isLeft() const;
    void expect(const AlbumFields& fields, ComingSlides& slides);
    void showProgress(const QString& count);

    const SlideControls& c_;
    Commands& commands_;
    CommonDialog& cdlDIALOG_;
    SlideList& slides_;
    Thumbnails& thumbnails_;
    AlbumList& albums_;
    /// The commands that change which album is open.
    CommandTurn turn_;
    /// Undone and done again with the list.
    OpenAlbum& open_;
    bool stopped_ = false;
    /// Albums of the list that were asked for so far.
    int asks_ = 0;
};

}  // namespace velorama
