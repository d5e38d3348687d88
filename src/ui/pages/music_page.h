#pragma once

#include "music/music_controls.h"
#include "ui/pages/page.h"

namespace velorama {

/// The page Music: the list of tracks and the player's buttons.
class MusicPage : public Page {
    Q_OBJECT
public:
    explicit MusicPage(QWidget& surface);

    void makeRoom() override;
    void layOut() override;
    QWidget* firstFocus() const override { return controls.lstMUSIC; }
    QList<QWidget*> tabOrder() const override;

    const MusicControls controls{*this};

private:
    float columnRight() const;
    QList<cbtn*> columnButtons() const;

    cbtn* btnMUSIC_ = nullptr;
};

}  // namespace velorama
