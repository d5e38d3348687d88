#include "core/documents.h"
#include "webalbum/album_folder.h"
#include "webalbum/mod_webalbum.h"

namespace velorama {

void AlbumBuild::save(const QString& page, const QString& folder, const QString& name) const {
    if (!DocumentSaveText(page, fileIn(folder, name), Lasting::No) && unwritten) {
        unwritten(name);
    }
}

}  // namespace velorama
