#pragma once

#include "albums/album_file.h"
#include "albums/album_notes.h"
#include "albums/found_notes.h"
#include "albums/slide_notes.h"
#include "browse/found_list.h"
#include "browse/preview.h"
#include "browse/wallpaper.h"
#include "music/audio_engine.h"
#include "ui/dialogs/frm_picturepreview.h"
#include "ui/drags.h"
#include "ui/main_services.h"
#include "ui/pages/pages.h"
#include "ui/pages/sample_slides.h"
#include "ui/slide_bar.h"
#include "webalbum/web_album.h"

namespace velorama {

/// The classes that work on the pages and the slide bar, and what they hear from one another.
class Workshop : public QObject {
    Q_OBJECT
public:
    /// What it is given must outlive this object. Message boxes come up over `form`.
    Workshop(QWidget& form, Pages& pages, SlideBar& slideBar, Commands& commands,
             CommonDialog& cdlDIALOG, const MainServices& services);

    /// Reads the lists of albums and music from the settings, and opens the album of that path.
    void load(const QString& albumPath);
    /// Lists that were never loaded are not written: they would take the place of those stored.
    void saveLists() const;
    void showFirstSlide();
    /// Whatever runs ends at its next picture.
    void stop();

private:
    LookAhead pictures_;
    Thumbnails thumbnails_;

public:
    SlideList slides;
    FoundList found;
    AlbumList albums;
    AlbumFile album;
    AudioEngine audio;
    WebAlbum webAlbum;

private:
    Drags drags_;
    void connectWebAlbum();
    void tellAlbumFolder();
    /// The preview window, loaded at its first use; it unloads when it is closed.
    const PreviewControls& previewWindow();
    void showPreview() const;
    void connectFound();
    void connectSlides();
    void connectCommands();
    void enablePictureCommands();

    QWidget& form_;
    Commands& commands_;
    Pages& pages_;
    SlideBar& slideBar_;
    const WallpaperBoxes boxes_;
    QPointer<frmPICTUREPREVIEW> previewForm_;
    FoundNotes foundNotes_;
    SlideNotes slideNotes_;
    AlbumNotes albumNotes_;
    const TouchedPicture touched_;
    Preview preview_;
    Wallpaper wallpaper_;
    SampleSlides sampleSlides_;
    bool loaded_ = false;
};

}  // namespace velorama
