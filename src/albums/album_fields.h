#pragma once

#include "core/documents.h"

#include <deque>
#include <optional>

namespace velorama {

/// What the first field of an album says: "12|note", or the count alone.
struct AlbumHeader {
    QString count;
    QString note;
};

/// The header of an album on disk; empty if it cannot be read.
AlbumHeader albumHeader(const QString& path);

/// How many slides an album on disk has, a line for each; whether their files are there is not
/// asked. Nothing if it cannot be read, or is too large for an album. Safe on any thread.
std::optional<qint64> albumSlides(const QString& path);

/// Nothing if the file cannot be read to its end, or is too large for an album.
std::optional<QByteArray> albumBytes(const QString& path);

/// The fields of an album, some of them known before their turn comes.
class AlbumFields {
public:
    explicit AlbumFields(QByteArray bytes);

    AlbumHeader readHeader();
    bool EndOfFile() const { return next_.empty(); }
    /// Path of the next slide; empty for none. `s` becomes the last field read. A path may have
    /// been cut at a comma: where its file is missing, it is put together with the field that
    /// follows, the second time on top of the first.
    QString nextSlide(QString& s);
    /// The next ones, soonest first.
    const std::deque<QString>& coming() const { return next_; }

private:
    void fill();
    /// Nothing at the end of the file: `field` stays as it is.
    void Input(QString& field);

    FieldReader reader_;
    std::deque<QString> next_;
};

}  // namespace velorama
