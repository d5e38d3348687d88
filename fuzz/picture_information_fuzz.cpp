#include "core/globals.h"
#include "entry.h"

using namespace velorama;

// Kind and size of a picture as the web album's pages tell them, from the file's head.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::Folder folder;
    static const bool made = [] {
        gFileFoldr = std::make_unique<clsFILEFOLDR>();
        return true;
    }();
    Q_UNUSED(made)
    clsPAGPROPS picture;
    picture.PictureFileInformation(
        folder.write(QStringLiteral("picture"), fuzz::asBytes(data, size)));
    fuzz::require(picture.kind() != clsPAGPROPS::Unknown ||
                  (picture.PictureAttribWidth() == 0 && picture.PictureAttribHeight() == 0 &&
                   picture.depth() == 0));
    fuzz::require(picture.PictureAttribWidth() >= 0 && picture.PictureAttribWidth() <= 65535);
    return 0;
}
