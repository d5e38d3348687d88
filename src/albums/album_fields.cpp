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

AlbumOnDisk albumOnDisk(const QString& path) {
    // The program's own may be gone where a thread is late.
    if (!clsFILEFOLDR().FileExists(path)) {
        return {};
    }
    QFile file(hostFile(path));
    if (!file.open(QIODevice::ReadOnly) || file.size() > largestAlbum) {
        return {true, std::nullopt};
    }
    QByteArray bytes = file.readAll();
    return {true,
            file.error() == QFileDevice::NoError ? std::optional(std::move(bytes)) : std::nullopt};
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

AlbumSlide slideOf(const QString& field, const QString& next) {
    // The program's own may be gone where a thread is late.
    const clsFILEFOLDR files;
    if (files.FileExists(field)) {
        return {field, true, false};
    }
    QString alt = field;
    for (const QLatin1String between : {QLatin1String(", "), QLatin1String(",")}) {
        alt += between + next;
        if (files.FileExists(alt)) {
            return {alt, true, true};
        }
    }
    alt = withoutOuterBlanks(alt);
    // The empty line at the end of an album gives three.
    constexpr qsizetype shortest = 4;
    return alt.size() < shortest ? AlbumSlide{QString(), false, true}
                                 : AlbumSlide{alt, files.FileExists(alt), true};
}

AlbumSlide AlbumFields::nextSlide(QString& s, const SlideOf& slideAt) {
    Input(s);
    const QString next = s.isEmpty() || next_.empty() ? s : next_.front();
    AlbumSlide slide = slideAt(s, next);
    if (slide.takesNext && !s.isEmpty()) {
        Input(s);
    }
    return slide;
}

}  // namespace velorama
