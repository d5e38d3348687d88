#pragma once

#include "browse/slide_controls.h"
#include "browse/thumbnails.h"
#include "controls/lists/item_notes.h"
#include "platform/process/slow_looks.h"

namespace velorama {

/// What the slide bar tells of each slide: where its file is, and whether it is not to be found or
/// cannot be read. A file is looked at when its thumbnail is made and when its slide is pointed at;
/// one of which no thumbnail was made, once when its slide is painted.
class SlideNotes : public ItemNotes {
    Q_OBJECT
public:
    /// Both must outlive this object, which becomes the slide bar's.
    SlideNotes(const SlideControls& controls, Thumbnails& thumbnails);

    ItemMark mark(const QString& key) override;
    QStringList tip(const QString& key) override;
    void look(const QString& key) override;

private:
    void learn(const QString& path, FileState seen);
    void forgetSought(const QString& key);

    const SlideControls& c_;
    Thumbnails& thumbnails_;
    SlowLooks looks_;
};

}  // namespace velorama
