#pragma once

#include "core/documents.h"

#include <deque>
#include <functional>
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

/// An album as its file is found; no bytes if it cannot be read to its end, or is too large for an
/// album.
struct AlbumOnDisk {
    bool isThere = false;
    std::optional<QByteArray> bytes;
};
/// Safe on any thread.
AlbumOnDisk albumOnDisk(const QString& path);

/// A slide as an album names it; an empty path is none.
struct AlbumSlide {
    QString path;
    bool isThere = false;
    /// The field behind it is a part of it.
    bool takesNext = false;
};
/// What a field comes to. A path may have been cut at a comma: where its file is missing, it is put
/// together with the field that follows, the second time on top of the first. Safe on any thread.
AlbumSlide slideOf(const QString& field, const QString& next);

/// The fields of an album, some of them known before their turn comes.
class AlbumFields {
public:
    explicit AlbumFields(QByteArray bytes);

    AlbumHeader readHeader();
    bool EndOfFile() const { return next_.empty(); }
    using SlideOf = std::function<AlbumSlide(const QString& field, const QString& next)>;
    /// `s` becomes the last field read. At the end of the file a field has itself behind it; so has
    /// an empty one, which takes none.
    AlbumSlide nextSlide(QString& s, const SlideOf& slideAt);
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
