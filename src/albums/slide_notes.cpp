#include "albums/slide_notes.h"

#include "browse/picture_facts.h"
#include "core/globals.h"

namespace velorama {
namespace {

FileState stateOf(const PictureFacts& facts) {
    if (!facts.isThere) {
        return FileState::NotFound;
    }
    return facts.pixels.isEmpty() ? FileState::Unreadable : FileState::Readable;
}

/// A slide has the name of its file or, made without one, its path; no disk is asked which.
bool isRenamed(const QString& text, const QString& path) {
    return text != path && text != gFileFoldr->FileNameFromPath(path, true);
}

}  // namespace

SlideNotes::SlideNotes(const SlideControls& controls, Thumbnails& thumbnails)
    : c_(controls), thumbnails_(thumbnails) {
    controls.lvwSLIDEBAR->setNotes(this);
}

ItemMark SlideNotes::mark(const QString& key) {
    switch (thumbnails_.slideFile(key)) {
        case FileState::NotFound:
            return {QStringLiteral("picture-missing"), fileNotFound, ItemMark::Place::Middle};
        case FileState::Unreadable:
            return {QStringLiteral("picture-broken"), cannotBeRead, ItemMark::Place::Middle};
        case FileState::Unknown:
            thumbnails_.learn(key, FileState::Sought);
            look(key);
            return {};
        default:
            return {};
    }
}

QStringList SlideNotes::tip(const QString& key) {
    const ListItem* slide = c_.lvwSLIDEBAR->item(key);
    QStringList lines;
    if (slide != nullptr && isRenamed(slide->Text(), key)) {
        lines += slide->Text();
    }
    lines += key;
    const ItemMark lack = mark(key);
    if (!lack.isNull()) {
        lines += lack.text;
    }
    return lines;
}

void SlideNotes::look(const QString& key) {
    const auto find = [this, key]() -> SlowLooks::Answer {
        const FileState seen = stateOf(pictureFacts(key));
        return [this, key, seen] { learn(key, seen); };
    };
    looks_.ask(find, [this, key] { forgetSought(key); });
}

/// Its slide asks anew when it is next painted.
void SlideNotes::forgetSought(const QString& key) {
    if (thumbnails_.slideFile(key) == FileState::Sought) {
        thumbnails_.learn(key, FileState::Unknown);
    }
}

/// A head that can be read does not make up for a picture that could not.
void SlideNotes::learn(const QString& path, FileState seen) {
    const FileState known = thumbnails_.slideFile(path);
    const bool isWorse = known == FileState::Unreadable && seen == FileState::Readable;
    if (seen != known && !isWorse) {
        thumbnails_.learn(path, seen);
        emit Changed();
    }
}

}  // namespace velorama
