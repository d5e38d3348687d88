#include "albums/album_file.h"
#include "browse/screen_pointer.h"
#include "core/documents.h"
#include "core/globals.h"
#include "platform/files/paths.h"
#include "platform/numbers.h"
#include "platform/process/events.h"

#include <QFile>
#include <QPointer>
#include <QThread>

#include <algorithm>
#include <deque>
#include <optional>
#include <utility>

namespace velorama {
namespace {

// More bytes than any list of slides has; a larger file is none, and is not taken into memory.
constexpr qint64 largestAlbum = 256LL * 1024 * 1024;

// A longer text is no path, and the work ahead is spared it.
constexpr qsizetype longestPath = 32767;

/// Fields read ahead, so that their thumbnails can be announced.
qsizetype fieldsAhead() {
    return std::max(16, 2 * QThread::idealThreadCount());
}

/// Nothing if the file cannot be read to its end.
std::optional<QByteArray> albumBytes(const QString& path) {
    QFile file(hostFile(path));
    if (!file.open(QIODevice::ReadOnly) || file.size() > largestAlbum) {
        return std::nullopt;
    }
    QByteArray bytes = file.readAll();
    return file.error() == QFileDevice::NoError ? std::optional(std::move(bytes)) : std::nullopt;
}

}  // namespace

/// The fields of an album, some of them known before their turn comes.
class AlbumFile::Fields {
public:
    explicit Fields(QByteArray bytes) : reader_(std::move(bytes)) { fill(); }

    bool EndOfFile() const { return next_.empty(); }
    /// Nothing at the end of the file: `field` stays as it is.
    void Input(QString& field) {
        if (!next_.empty()) {
            field = next_.front();
            next_.pop_front();
            fill();
        }
    }
    /// Path of the next slide; empty for none. `s` becomes the last field read. A path may have
    /// been cut at a comma: where its file is missing, it is put together with the field that
    /// follows, the second time on top of the first.
    QString nextSlide(QString& s);
    /// The next ones, soonest first.
    const std::deque<QString>& coming() const { return next_; }

private:
    void fill() {
        while (std::ssize(next_) < fieldsAhead() && !reader_.EndOfFile()) {
            next_.push_back(reader_.Input());
        }
    }

    FieldReader reader_;
    std::deque<QString> next_;
};

QString AlbumFile::Fields::nextSlide(QString& s) {
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

QString AlbumFile::DocumentOpenText(const QString& Path) {
    beginReading();
    isRead_ = false;
    QString last;
    if (gFileFoldr->FileExists(Path)) {
        const QPointer<AlbumFile> self = this;
        std::optional<QByteArray> bytes = albumBytes(Path);
        isRead_ = bytes.has_value();
        Fields fields(std::move(bytes).value_or(QByteArray()));
        QString header;
        fields.Input(header);
        const QString bar = QStringLiteral("|");
        note_ = header.contains(bar) ? StringPieceArr(header, bar, 1) : QString();
        last = readSlides(fields, StringPieceArr(header, bar, 0));
        if (!self) {
            setScreenPointer(ScreenPointer::Default);
            return last;
        }
        thumbnails_.expectSlides({});
        // Without a file to read the bar stays in sight.
        c_.prgBARSLIDES->setVisible(false);
    }
    endReading();
    return last;
}

void AlbumFile::beginReading() {
    hadFocus_ = hadFocus_ || c_.lvwSLIDEBAR->hasFocus();
    c_.lvwSLIDEBAR->setVisible(false);
    c_.imlTHUMBNAILS->Clear();
    c_.lvwSLIDEBAR->Clear();
    c_.prgBARSLIDES->setValue(0);
    c_.prgBARSLIDES->setVisible(true);
    setScreenPointer(ScreenPointer::Hourglass);
}

void AlbumFile::endReading() {
    setScreenPointer(ScreenPointer::Default);
    c_.lvwSLIDEBAR->setVisible(true);
    if (std::exchange(hadFocus_, false)) {
        c_.lvwSLIDEBAR->setFocus();
    }
}

/// The last field read. Other commands may come in after each slide, another reading among them:
/// nothing of the lists is kept over that, and this object may be gone.
QString AlbumFile::readSlides(Fields& fields, const QString& count) {
    const QPointer<AlbumFile> self = this;
    QString s;
    while (self && !stopped_ && !turn_.isAwaited() && !fields.EndOfFile()) {
        expect(fields);
        const QString path = fields.nextSlide(s);
        if (!path.isEmpty()) {
            addSlide(path, s);
        }
        DoEvents();
        if (self) {
            showProgress(count);
        }
    }
    return s;
}

void AlbumFile::addSlide(const QString& path, const QString& picture) {
    const QPointer<AlbumFile> self = this;
    thumbnails_.SlideThumbnailAdd(picture);
    if (!self || stopped_) {
        return;
    }
    c_.lvwSLIDEBAR->Add(c_.lvwSLIDEBAR->Count() + 1, path,
                        gFileFoldr->FileNameFromPath(path, false),
                        thumbnails_.SlideIconIndex(picture));
}

void AlbumFile::expect(const Fields& fields) {
    QStringList paths;
    for (const QString& field : fields.coming()) {
        const bool canBePath = !field.isEmpty() && field.size() <= longestPath;
        if (canBePath && c_.imlTHUMBNAILS->indexOf(field) == 0) {
            paths.append(field);
        }
    }
    thumbnails_.expectSlides(paths);
}

void AlbumFile::showProgress(const QString& count) {
    if (const auto most = decimalNumber(count)) {
        c_.prgBARSLIDES->setMax(static_cast<float>(*most));
    }
    c_.prgBARSLIDES->setValue(static_cast<float>(c_.lvwSLIDEBAR->Count()));
}

}  // namespace velorama
