#include "imaging/decode/picture.h"

#include "imaging/decode/decoding.h"
#include "platform/files/paths.h"

#include <QFile>
#include <QFileInfo>

#include <new>

namespace velorama {
namespace {

/// Size of an ordinary file; folders, pipes and devices, which might never end, count as empty.
qint64 ordinarySize(const QString& path) {
    const QFileInfo info(path);
    return info.isFile() ? info.size() : 0;
}

/// Up to `size` bytes from the file's start; none if it cannot be read.
QByteArray firstBytes(const QString& path, qint64 size) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) ? file.read(size) : QByteArray();
}

}  // namespace

Picture LoadPicture(const QString& path, const Fit& fit) {
    try {
        const QString file = hostFile(path);
        const qint64 size = ordinarySize(file);
        const MemoryShare share(fileMemory(), size);
        return size > 0 && share ? decodePicture(firstBytes(file, size), fit) : Picture();
    } catch (const std::bad_alloc&) {
        return {};
    }
}

}  // namespace velorama
