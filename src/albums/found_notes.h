#pragma once

#include "browse/found_controls.h"
#include "browse/picture_facts.h"
#include "controls/lists/item_notes.h"
#include "platform/process/slow_looks.h"

#include <optional>

namespace velorama {

/// What the list of found pictures tells of each: whether it is in the show, and in the tooltip
/// what its file says and why it cannot become a slide.
class FoundNotes : public ItemNotes {
    Q_OBJECT
public:
    /// Both must outlive this object, which becomes the found list's.
    FoundNotes(const FoundControls& found, const ListView& lvwSLIDEBAR);

    ItemMark mark(const QString& key) override;
    QStringList tip(const QString& key) override;
    void look(const QString& key) override;

private:
    QString nameOf(const QString& key) const;

    const FoundControls& found_;
    const ListView& lvwSLIDEBAR_;
    /// Of the picture that was pointed at last.
    QString path_;
    std::optional<PictureFacts> facts_;
    SlowLooks looks_;
};

}  // namespace velorama
