#include "albums/album_fields.h"

#include "core/globals.h"
#include "platform/files/paths.h"

#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <algorithm>
#include <utility>

namespace velorama {
namespace {

// More bytes than any list of slides has; a larger file is none, and is not taken into memory.
constexpr qint64 largestAlbum = 256LL * 1024 * 1024;

// A file named in the list of albums may be of any size and need not be one.
constexpr qint64 mostHeaderBytes = 64LL * 1024;

/// Fields read ahead, so that their thumbnails can be announced.
qsizetype fieldsAhead() {
    return std::max(16, 2 * QThread::idealThreadCount());
}

AlbumHeader headerOf(const QString& field) {
    const QString bar = QStringLiteral("|");
    return {StringPieceArr(field, bar, 0),
            field.contains(bar) ? StringPieceArr(field, bar, 1) : QString()};
}

/// Counts the lines below the first that hold more than blanks.
class SlideLines {
public:
    void take(const QByteArray& bytes) {
        for (const char c : bytes) {
            if (c == '\r' || c == '\n') {
                end();
            } else {
                hasText_ = hasText_ || c != ' ';
            }
        }
    }
    qint64 count() const { return isHeader_ ? 0 : lines_ + (hasText_ ? 1 : 0); }

private:
    void end() {
        lines_ += !isHeader_ && hasText_ ? 1 : 0;
        isHeader_ = false;
        hasText_ = false;
    }

    qint64 lines_ = 0;
    bool isHeader_ = true;
    bool hasText_ = false;
};

}  // namespace

std::optional<qint64> albumSlides(const QString& path) {
    QFile file(hostFile(path));
    // A pipe or a device might never end.
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly) ||
        file.size() > largestAlbum) {
        return std::nullopt;
    }
    SlideLines lines;
    // Until nothing comes: some files tell more bytes than they give.
    for (QByteArray part = file.read(mostHeaderBytes); !part.isEmpty();
         part = file.read(mostHeaderBytes)) {
        lines.take(part);
    }
    return file.error() == QFileDevice::NoError ? std::optional(lines.count()) : std::nullopt;
}

AlbumHeader albumHeader(const QString& path) {
    QFile file(hostFile(path));
    return file.open(QIODevice::ReadOnly)
               ? headerOf(FieldReader(file.read(mostHeaderBytes)).Input())
               : AlbumHeader();
}

std::optional<QByteArray> albumBytes(const QString& path) {
    QFile file(hostFile(path));
    if (!file.open(QIODevice::ReadOnly) || file.size() > largestAlbum) {
        return std::nullopt;
    }
    QByteArray bytes = file.readAll();
    return file.error() == QFileDevice::NoError ? std::optional(std::move(bytes)) : std::nullopt;
}

AlbumFields::AlbumFields(QByteArray bytes) : reader_(std::move(bytes)) {
    fill();
}

void AlbumFields::fill() {
    while (std::ssize(next_) < fieldsAhead() && !reader_.EndOfFile()) {
        next_.push_back(reader_.Input());
    }
}

void AlbumFields::Input(QString& field) {
    if (!next_.empty()) {
        field = next_.front();
        next_.pop_front();
        fill();
    }
}

AlbumHeader AlbumFields::readHeader() {
    QString field;
    Input(field);
    return headerOf(field);
}

QString AlbumFields::nextSlide(QString& s) {
    Input(s);
    if (gFileFoldr->FileExists(s)) {
        return s;
    }
    QString alt = s;
    if (!s.isEmpty()) {
        Input(s);
    }
    alt += QLatin1String(", ") + s;
    if (gFileFoldr->FileExists(alt)) {
        return alt;
    }
    alt += QLatin1Char(',') + s;
    if (gFileFoldr->FileExists(alt)) {
        return alt;
    }
    alt = withoutOuterBlanks(alt);
    // The empty line at the end of an album gives three.
    return alt.size() < 4 ? QString() : alt;
}

}  // namespace velorama
