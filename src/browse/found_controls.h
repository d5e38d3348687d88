#pragma once

#include "controls/lists/file_list.h"
#include "controls/lists/folder_tree.h"
#include "controls/lists/image_list.h"
#include "controls/lists/list_view.h"

#include <memory>

namespace velorama {

/// The files that are pictures for the program.
inline const QString pictureMask = QStringLiteral("*.bmp;*.jpg;*.gif");

/// The tree of folders and the pictures of the folder on show. The controls belong to the page
/// they are made on.
struct FoundControls {
    explicit FoundControls(QWidget& page);

    FolderTree* ftvFOLDER;
    ListView* lvwFOUND;
    ImageList* imlFOUNDICONS;
    /// Hidden: the names of the files, one for each row of the list.
    const std::unique_ptr<FileList> flbFOUND = std::make_unique<FileList>();
};

}  // namespace velorama
