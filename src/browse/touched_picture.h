#pragma once

#include "controls/lists/file_list.h"
#include "controls/lists/list_view.h"

namespace velorama {

/// The list that the user touched last, whose current picture the preview and the wallpaper act
/// on. An empty list of slides gives way to the found list.
class TouchedPicture {
public:
    /// All must outlive this object.
    TouchedPicture(const ListView& lvwSLIDEBAR, const ListView& lvwFOUND, const FileList& flbFOUND)
        : lvwSLIDEBAR_(lvwSLIDEBAR), lvwFOUND_(lvwFOUND), flbFOUND_(flbFOUND) {}

    /// False where nothing is to be done: no picture has been found.
    bool choose() const;
    const ListView& list() const;
    /// Path of an item of that list; empty for none. A found file follows its folder's path and a
    /// slash, whatever that path ends with.
    QString path(const ListItem* item) const;
    /// The same with the folder's own separator.
    QString joinedPath(const ListItem* item) const;

private:
    const ListView& lvwSLIDEBAR_;
    const ListView& lvwFOUND_;
    /// Its folder is that of the rows; the tree may be at another, whose names are still read.
    const FileList& flbFOUND_;
};

}  // namespace velorama
