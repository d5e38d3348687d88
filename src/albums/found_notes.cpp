#include "albums/found_notes.h"

#include "albums/found_files.h"

namespace velorama {
namespace {

const QString inTheShow = QStringLiteral("in the show");

}  // namespace

FoundNotes::FoundNotes(const FoundControls& found, const ListView& lvwSLIDEBAR)
    : found_(found), lvwSLIDEBAR_(lvwSLIDEBAR) {
    // Slides come and go by the thousand in one go, and that tells of it once.
    const QAbstractItemModel* slides = lvwSLIDEBAR.model();
    connect(slides, &QAbstractItemModel::modelReset, this, &ItemNotes::Changed);
    connect(slides, &QAbstractItemModel::dataChanged, this, &ItemNotes::Changed);
    found.lvwFOUND->setNotes(this);
}

QString FoundNotes::nameOf(const QString& key) const {
    const ListItem* row = found_.lvwFOUND->item(key);
    return row != nullptr ? row->Text() : QString();
}

ItemMark FoundNotes::mark(const QString& key) {
    const FoundFile file = foundFileIn(found_.flbFOUND->Path(), nameOf(key));
    return lvwSLIDEBAR_.item(file.path) != nullptr
               ? ItemMark{QStringLiteral("check"), inTheShow, ItemMark::Place::Corner}
               : ItemMark();
}

QStringList FoundNotes::tip(const QString& key) {
    const FoundFile file = foundFileIn(found_.flbFOUND->Path(), nameOf(key));
    QStringList lines(file.entry);
    if (facts_ && file.path == path_) {
        lines += factLines(*facts_);
    }
    if (!mark(key).isNull()) {
        lines += inTheShow;
    }
    if (!file.isPicture()) {
        lines += QStringLiteral("cannot become a slide: its name has more than one dot");
    }
    return lines;
}

void FoundNotes::look(const QString& key) {
    path_ = foundFileIn(found_.flbFOUND->Path(), nameOf(key)).path;
    facts_.reset();
    looks_.ask([this, path = path_]() -> SlowLooks::Answer {
        const PictureFacts facts = pictureFacts(path);
        return [this, path, facts] {
            if (path == path_) {
                facts_ = facts;
                emit Changed();
            }
        };
    });
}

}  // namespace velorama
