#include "browse/picture_facts.h"

#include "imaging/decode/picture_size.h"
#include "platform/files/paths.h"
#include "platform/numbers.h"

#include <QFileInfo>
#include <QLocale>

namespace velorama {

PictureFacts pictureFacts(const QString& path) {
    const QFileInfo file(hostFile(path));
    if (!file.isFile()) {
        return {};
    }
    return {true, PictureFileSize(path), file.size(), file.lastModified()};
}

QStringList factLines(const PictureFacts& facts) {
    if (!facts.isThere) {
        return {fileNotFound};
    }
    const QString size = facts.pixels.isEmpty()
                             ? cannotBeRead
                             : decimalText(facts.pixels.width()) + u" \u00D7 " +
                                   decimalText(facts.pixels.height()) + u" pixels";
    const QLocale locale;
    const QString bytes = facts.bytes == 1
                              ? QStringLiteral("1 byte")
                              : locale.formattedDataSize(facts.bytes, 1, QLocale::DataSizeSIFormat);
    return {size + u", " + bytes, locale.toString(facts.changed, QLocale::ShortFormat)};
}

}  // namespace velorama
