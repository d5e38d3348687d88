#pragma once

#include "controls/lists/held_images.h"

#include <QHash>
#include <QImage>
#include <QObject>
#include <QString>
#include <QStringView>

#include <vector>

namespace velorama {

/// Images under unique text keys, numbered from 1 in the order they were added. Those that have an
/// origin stay in memory as long as they are painted now and then; the others stay.
class ImageList : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    int Count() const { return static_cast<int>(keys_.size()); }
    /// Adds at the end. False, and nothing happens, if the key is there already or empty.
    bool Add(const QString& key, const QImage& image,
             std::shared_ptr<const ImageOrigin> origin = nullptr);
    void Clear();
    /// Makes room for so many in all: tables that grow on the way hold the window up.
    void reserve(int count);
    /// Image `index` (from 1), made anew if need be; a null image outside the list.
    QImage image(int index) const { return images_.image(index - 1); }
    /// The same for painting: nothing if the image would have to be made, which `origin` can do on
    /// another thread.
    std::optional<QImage> atHand(int index) { return images_.atHand(index - 1); }
    /// Null if the image stays in memory.
    std::shared_ptr<const ImageOrigin> origin(int index) const { return images_.origin(index - 1); }
    /// Takes in what that has made. Nothing happens if image `index` is another by now.
    void restore(int index, const std::shared_ptr<const ImageOrigin>& origin, const QImage& image) {
        images_.restore(index - 1, origin, image);
    }
    QString Key(int index) const;
    /// Number of the image with exactly this key, 0 if none.
    int indexOf(const QString& key) const { return numbers_.value(key, 0); }
    /// Number of the first image whose key occurs anywhere in `text`, case-sensitive; 0 if none.
    /// Fast also with thousands of images: its cost does not grow with their number.
    int firstKeyWithin(const QString& text) const;

    /// Size of an image in logical pixels. Refused (false) once images exist.
    bool setImageSize(QSize size);
    QSize ImageSize() const { return size_; }

signals:
    void changed();

private:
    int firstKeyAt(const QString& text, qsizetype start) const;
    void rememberLength(const QString& key);

    HeldImages images_;
    std::vector<QString> keys_;
    // The views point into keys_, whose text stays where it is.
    QHash<QStringView, int> numbers_;
    // For each first character of a key the lengths that keys with it have, rising.
    QHash<QChar, std::vector<qsizetype>> lengths_;
    QSize size_;
};

}  // namespace velorama
