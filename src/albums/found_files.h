#pragma once

#include "browse/found_controls.h"
#include "browse/thumbnails.h"

namespace velorama {

/// A file of the found list, for the time when that list may show another folder.
struct FoundFile {
    QString entry;
    QString path;
    /// By what follows the first dot: "a.b.jpg" is no picture.
    bool isPicture() const;
    bool isGif() const;
    bool operator==(const FoundFile&) const = default;
};

/// The pictures among files and folders of this machine that need not be on show, in their order:
/// files that are there, and of a folder those in it that match `pattern` (`FileList`), by name.
QList<FoundFile> picturesOf(const QStringList& paths, const QString& pattern);

/// The file of that name in a folder.
FoundFile foundFileIn(const QString& folder, const QString& entry);

/// The folder on show, as the files that may become slides. Row i of lvwFOUND is entry i - 1 of
/// flbFOUND.
class FoundFiles {
public:
    /// All must outlive this object.
    FoundFiles(const FoundControls& found, const ImageList& imlTHUMBNAILS, Thumbnails& thumbnails);

    /// Entry `index`, from 0; outside the folder it has no name.
    FoundFile file(int index) const;
    /// Those of the selected rows.
    QList<FoundFile> selected() const;
    /// All, from the last to the first.
    QList<FoundFile> backwards() const;

    /// Announces the files of a list from its entry `index` on.
    void expectOf(const QList<FoundFile>& files, qsizetype index);

private:
    void appendIfNew(QStringList& paths, const FoundFile& found) const;

    const FoundControls& found_;
    const ImageList& imlTHUMBNAILS_;
    Thumbnails& thumbnails_;
};

}  // namespace velorama
