#include "entry.h"
#include "imaging/cache/pixel_packing.h"
#include "imaging/cache/thumbnail_file.h"
#include "thumbnail_seed.h"

using namespace velorama;

namespace {

void look(ThumbnailFile& file, const FileStamp& stamp) {
    const std::optional<StoredThumbnail> found = file.find(stamp, fuzz::seedCell);
    fuzz::require(!found || (found->file == stamp && found->cell == fuzz::seedCell));
    if (found) {
        unpackPixels(found->pixels);
    }
}

}  // namespace

// The file of kept thumbnails, damaged: whatever is in it, it is read, written and shrunk.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::Folder folder;
    const QString path =
        folder.write(QStringLiteral("thumbnails.sqlite"), fuzz::asBytes(data, size));
    {
        ThumbnailFile file(path);
        const FileStamp first = fuzz::seedStamp(0);
        look(file, first);
        file.write({fuzz::seedThumbnail(0), fuzz::seedThumbnail(1)});
        look(file, first);
        file.markUsed({ThumbnailFile::keyOf(first.path, fuzz::seedCell)}, 7);
        file.shrink(1);
    }
    folder.clear();
    return 0;
}
