#include "albums/album_slides.h"

#include "core/globals.h"
#include "platform/files/drives.h"
#include "platform/files/paths.h"

#include <QSet>

#include <utility>

namespace velorama {
namespace {

SlideFind findOf(const QString& path) {
    if (hostFile(path) == path) {
        return SlideFind::AsWritten;
    }
    return onDrive(path) ? SlideFind::OnDrive : SlideFind::OtherSpelling;
}

class AlbumReading {
public:
    explicit AlbumReading(QByteArray bytes) : fields_(std::move(bytes)) {}

    AlbumSlides read();

private:
    void take(const AlbumSlide& slide);
    void takeNamed(const AlbumSlide& slide);

    AlbumFields fields_;
    AlbumSlides result_;
    QSet<QString> known_;
    /// The field read last, and the one that is its rest if it is missing; empty for none.
    QString field_;
    QString rest_;
};

AlbumSlides AlbumReading::read() {
    result_.header = fields_.readHeader();
    const auto slideAt = [this](const QString& field, const QString& next) {
        field_ = field;
        rest_ = fields_.coming().empty() ? QString() : next;
        return slideOf(field, next);
    };
    QString last;
    while (!fields_.EndOfFile()) {
        take(fields_.nextSlide(last, slideAt));
    }
    return std::move(result_);
}

void AlbumReading::take(const AlbumSlide& slide) {
    if (!slide.path.isEmpty() && !known_.contains(slide.path)) {
        known_.insert(slide.path);
        result_.slides.push_back(slide);
        takeNamed(slide);
    }
}

void AlbumReading::takeNamed(const AlbumSlide& slide) {
    if (slide.isThere) {
        result_.named.push_back({slide.path, findOf(slide.path)});
        return;
    }
    result_.named.push_back({field_, SlideFind::Missing});
    if (!rest_.isEmpty()) {
        const bool isThere = clsFILEFOLDR().FileExists(rest_);
        result_.named.push_back({rest_, isThere ? SlideFind::Lost : SlideFind::Missing});
    }
}

}  // namespace

std::optional<AlbumSlides> slidesOfAlbum(const QString& album) {
    AlbumOnDisk onDisk = albumOnDisk(album);
    return onDisk.bytes ? std::optional(AlbumReading(*std::move(onDisk.bytes)).read())
                        : std::nullopt;
}

QString slideCaption(const AlbumSlide& slide) {
    // Its file has been looked for already.
    return slide.isThere ? clsFILEFOLDR().FileNameFromPath(slide.path, true) : slide.path;
}

}  // namespace velorama
