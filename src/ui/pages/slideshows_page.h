#pragma once

#include "albums/album_controls.h"
#include "core/commands.h"
#include "ui/pages/page.h"

#include <array>

namespace velorama {

/// The page Slideshows: the known albums, and the commands that make, open and save one.
class SlideshowsPage : public Page {
    Q_OBJECT
public:
    SlideshowsPage(QWidget& surface, Commands& commands);

    void makeRoom() override;
    void layOut() override;
    QWidget* firstFocus() const override { return albums.lvwALBUMS; }
    QList<QWidget*> tabOrder() const override;

    /// New, Open, Save, Save As.
    std::array<cbtn*, 4> cbtnSLIDES{};
    const AlbumControls albums{*this};

private:
    cbtn* btnCHOOSE_ = nullptr;
    /// Of the column of descriptions, in twips, as long as no hand has dragged it.
    float givenWidth_ = 0;
};

}  // namespace velorama
