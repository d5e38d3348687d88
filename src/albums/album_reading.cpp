#include "albums/album_fields.h"
#include "albums/album_file.h"
#include "albums/album_slides.h"
#include "albums/coming_slides.h"
#include "browse/screen_pointer.h"
#include "core/globals.h"
#include "platform/numbers.h"
#include "platform/process/await_work.h"

#include <QPointer>

#include <utility>

namespace velorama {
namespace {

// A longer text is no path, and the work ahead is spared it.
constexpr qsizetype longestPath = 32767;

}  // namespace

QString AlbumFile::DocumentOpenText(const QString& Path) {
    beginReading();
    open_.isRead = false;
    const QPointer<AlbumFile> self = this;
    std::optional<AlbumOnDisk> album =
        awaitWork([Path] { return albumOnDisk(Path); }, [self] { return !self || self->isLeft(); });
    QString last;
    if (album && album->isThere) {
        last = readAlbum(std::move(album->bytes));
    }
    if (!self) {
        setScreenPointer(ScreenPointer::Default);
        return last;
    }
    if (!album || album->isThere) {
        // Without a file to read the bar stays in sight.
        c_.prgBARSLIDES->setVisible(false);
    }
    c_.prgBARSLIDES->setWork({}, {});
    endReading();
    return last;
}

QString AlbumFile::readAlbum(std::optional<QByteArray> bytes) {
    const QPointer<AlbumFile> self = this;
    const bool isReadable = bytes.has_value();
    open_.isRead = isReadable;
    AlbumFields fields(std::move(bytes).value_or(QByteArray()));
    const AlbumHeader header = fields.readHeader();
    open_.note = header.note;
    QString last = readSlides(fields, header.count);
    if (self) {
        // Undo may bring back the part of an album whose read was left, and what its file holds
        // besides is not in the list. Left at its last slide, it may lack that one.
        open_.isRead = isReadable && fields.EndOfFile() && !isLeft();
        thumbnails_.expectSlides({});
    }
    return last;
}

void AlbumFile::beginReading() {
    slides_.leaveBatches();
    slides_.hideSlides();
    c_.imlTHUMBNAILS->Clear();
    c_.lvwSLIDEBAR->Clear();
    c_.prgBARSLIDES->setWork(QStringLiteral("Opening"), QStringLiteral("New ends it."));
    c_.prgBARSLIDES->setValue(0);
    c_.prgBARSLIDES->setVisible(true);
    setScreenPointer(ScreenPointer::Hourglass);
}

void AlbumFile::endReading() {
    setScreenPointer(ScreenPointer::Default);
    slides_.showSlides();
}

/// The last field read. Other commands may come in after each slide, another reading among them:
/// nothing of the lists is kept over that, and this object may be gone.
QString AlbumFile::readSlides(AlbumFields& fields, const QString& count) {
    const QPointer<AlbumFile> self = this;
    const auto left = [self] { return !self || self->isLeft(); };
    ComingSlides coming;
    const auto slideAt = [&](const QString& field, const QString& next) {
        return coming.await(field, next, left);
    };
    QString s;
    while (!left() && !fields.EndOfFile()) {
        expect(fields, coming);
        const AlbumSlide slide = fields.nextSlide(s, slideAt);
        if (!left() && !slide.path.isEmpty()) {
            addSlide(slide, s);
        }
        DoEvents();
        if (self) {
            showProgress(count);
        }
    }
    return s;
}

bool AlbumFile::isLeft() const {
    return stopped_ || turn_.isAwaited();
}

void AlbumFile::addSlide(const AlbumSlide& slide, const QString& picture) {
    const QPointer<AlbumFile> self = this;
    thumbnails_.SlideThumbnailAdd(picture, [self] { return !self || self->isLeft(); });
    if (!self || isLeft()) {
        return;
    }
    c_.lvwSLIDEBAR->Add(c_.lvwSLIDEBAR->Count() + 1, slide.path, slideCaption(slide),
                        thumbnails_.SlideIconIndex(picture));
}

void AlbumFile::expect(const AlbumFields& fields, ComingSlides& slides) {
    QStringList paths;
    for (const QString& field : fields.coming()) {
        const bool canBePath = !field.isEmpty() && field.size() <= longestPath;
        if (canBePath && c_.imlTHUMBNAILS->indexOf(field) == 0) {
            paths.append(field);
        }
    }
    slides.expect(fields.coming());
    thumbnails_.expectSlides(paths);
}

void AlbumFile::showProgress(const QString& count) {
    if (const auto most = decimalNumber(count)) {
        c_.prgBARSLIDES->setMax(static_cast<float>(*most));
    }
    c_.prgBARSLIDES->setValue(static_cast<float>(c_.lvwSLIDEBAR->Count()));
}

}  // namespace velorama
