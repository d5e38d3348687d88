#include "entry.h"
#include "platform/files/drives.h"

#include <QDir>

using namespace velorama;

// Reads a drives file, and what was found in it once more.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const DriveFolders folders = driveFolders(fuzz::asBytes(data, size));
    QByteArray text;
    char letter = 'A';
    for (const QString& folder : folders) {
        fuzz::require(folder.isEmpty() ||
                      (QDir::isAbsolutePath(folder) && !folder.contains(QChar(u'\0'))));
        // With a closing slash, since blanks at the end of a line are none of the folder's.
        if (!folder.isEmpty()) {
            text += letter;
            text += ": " + folder.toUtf8() + "/\n";
        }
        ++letter;
    }
    fuzz::require(driveFolders(text) == folders);
    return 0;
}
