#include "platform/sound/unfinished_wave.h"

#include <QtEndian>

#include <algorithm>
#include <cstdio>

namespace velorama {
namespace {

constexpr qint64 HeadSize = 8;  // the kind of file and its size without these bytes

/// The size that the file's head tells, 0 if it is too short for one.
qint64 toldSize(const QByteArray& start) {
    if (start.size() < 28) {
        return 0;
    }
    const char* size = start.constData() + 4;
    if (start.startsWith("RF64")) {
        return qFromLittleEndian<qint64>(start.constData() + 20);
    }
    return start.startsWith("RIFX") ? qFromBigEndian<quint32>(size)
                                    : qFromLittleEndian<quint32>(size);
}

}  // namespace

std::unique_ptr<UnfinishedWave> UnfinishedWave::open(const QString& path) {
    std::unique_ptr<UnfinishedWave> wave(new UnfinishedWave(path));
    return wave->readHead() ? std::move(wave) : nullptr;
}

bool UnfinishedWave::readHead() {
    if (!file_.open(QIODevice::ReadOnly)) {
        return false;
    }
    const QByteArray start = file_.read(28);
    const qint64 told = toldSize(start);
    const qint64 rest = file_.size() - HeadSize;
    if (told == rest || told == rest - 1) {  // Some leave out the byte that makes it even.
        return false;
    }
    // A size of 8 is the library's sign of a file that was not closed.
    head_ = start.startsWith("RIFX") ? QByteArray("RIFX\0\0\0\x08", HeadSize)
                                     : QByteArray("RIFF\x08\0\0\0", HeadSize);
    return file_.seek(0);
}

SNDFILE* UnfinishedWave::openSound(SF_INFO& info) {
    SF_VIRTUAL_IO io = {};
    io.get_filelen = [](void* self) -> sf_count_t {
        return static_cast<UnfinishedWave*>(self)->file_.size();
    };
    io.seek = [](sf_count_t offset, int whence, void* self) {
        return static_cast<UnfinishedWave*>(self)->seek(offset, whence);
    };
    io.read = [](void* bytes, sf_count_t count, void* self) {
        return static_cast<UnfinishedWave*>(self)->read(static_cast<char*>(bytes), count);
    };
    io.write = [](const void*, sf_count_t, void*) -> sf_count_t { return 0; };
    io.tell = [](void* self) -> sf_count_t {
        return static_cast<UnfinishedWave*>(self)->file_.pos();
    };
    return sf_open_virtual(&io, SFM_READ, &info, this);
}

sf_count_t UnfinishedWave::seek(sf_count_t offset, int whence) {
    const qint64 from = whence == SEEK_SET ? 0 : whence == SEEK_CUR ? file_.pos() : file_.size();
    return file_.seek(from + offset) ? file_.pos() : -1;
}

sf_count_t UnfinishedWave::read(char* bytes, sf_count_t count) {
    const qint64 at = file_.pos();
    const qint64 got = std::max<qint64>(file_.read(bytes, count), 0);
    if (at < HeadSize) {
        std::copy_n(head_.constData() + at, std::min(got, HeadSize - at), bytes);
    }
    return got;
}

}  // namespace velorama
