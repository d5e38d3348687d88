#pragma once

#include "ui/main_controls.h"
#include "ui/pages/web_album_page.h"

#include <QLineF>

namespace velorama {

/// Places and tints the main window's controls by its size. Everything in twips.
class MainLayout {
public:
    MainLayout(MainControls& controls, WebAlbumPage& webAlbum);

    void Form_Resize();
    void VBarLayout();

    /// One step of a drag of the splitter: the pointer at `x` within it, `button` 1 while held.
    void dragSplitter(int button, float x);
    /// The same by the keyboard: the splitter moves by `step` and the lists follow.
    void moveSplitter(float step);

    /// Gives the pages and the splitter their colour; buttons take the palette's.
    void applyPageColour();

    /// The separator line behind the controls, in logical pixels of the surface.
    QLineF separator() const { return separator_; }

private:
    void layOutFrames();
    void layOutToolbar();
    void layOutSlideshows();
    void layOutMusic();
    void layOutPictures();
    void layOutWebAlbum();
    void tintBand();
    void tintSlideBar();
    void placeSlideBar();

    MainControls& c_;
    WebAlbumPage& web_;
    QLineF separator_;
};

}  // namespace velorama
