#include "imaging/decode/picture_size.h"

#include "imaging/decode/decoding.h"
#include "platform/files/paths.h"

#include <QFileInfo>

namespace velorama {

QSize PictureFileSize(const QString& path) {
    const QString file = hostFile(path);
    if (!QFileInfo(file).isFile()) {
        return {};
    }
    FileBytes bytes(file);
    return pictureSize(bytes);
}

}  // namespace velorama
