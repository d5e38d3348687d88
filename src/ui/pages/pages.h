#pragma once

#include "controls/buttons/tab_strip.h"
#include "ui/pages/help_page.h"
#include "ui/pages/music_page.h"
#include "ui/pages/pictures_page.h"
#include "ui/pages/slideshows_page.h"
#include "ui/pages/web_album_page.h"

namespace velorama {

/// The five pages of the main window under their strip of tabs. One of them is up.
class Pages : public QObject {
    Q_OBJECT
public:
    /// All belong to the surface they are made on.
    Pages(QWidget& surface, Commands& commands, CommonDialog& cdlDIALOG);

    tab* const tabPAGES;
    SlideshowsPage* const slideshows;
    PicturesPage* const pictures;
    MusicPage* const music;
    WebAlbumPage* const webAlbum;
    HelpPage* const help;

    /// In the order of their tabs.
    std::array<Page*, 5> all() const { return {slideshows, pictures, music, webAlbum, help}; }
    /// The one that is up.
    const Page& shown() const;
    /// The strip's selected index from 1, and what its own click then does.
    void show(int number);
    /// As the last session left it: the first, if that was none of the first three.
    void restore();
    void save() const;

    /// Frames and splitter follow the surface, before the lists do.
    void stretch(float surfaceWidth, float surfaceHeight);
    /// See Page.
    void makeRoom();
    /// By the splitter. False where that has come too far to the left for anything to follow it.
    bool placeBySplitter(float surfaceWidth);
    void layOut();
    void tint();
    QList<QWidget*> tabOrder() const;

signals:
    /// Another page is up, or the same again.
    void Turned();

private:
    void tabPAGES_Click(const QString& caption);
    void connectKeys();
    void step(int by);
};

}  // namespace velorama
