#pragma once

#include <QHash>
#include <QImage>
#include <QObject>
#include <QString>
#include <QStringView>

#include <vector>

namespace velorama {

/// Images under unique text keys, numbered from 1 in the order they were added.
class ImageList : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    int Count() const { return static_cast<int>(entries_.size()); }
    /// Adds at the end. False, and nothing happens, if the key is there already or empty.
    bool Add(const QString& key, const QImage& image);
    void Clear();
    /// Image `index` (from 1); a null image outside the list.
    QImage image(int index) const;
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
    struct Entry {
        QString key;
        QImage image;
    };

    int firstKeyAt(const QString& text, qsizetype start) const;
    void rememberLength(const QString& key);

    std::vector<Entry> entries_;
    // The views point into the keys of entries_, whose text stays where it is.
    QHash<QStringView, int> numbers_;
    // For each first character of a key the lengths that keys with it have, rising.
    QHash<QChar, std::vector<qsizetype>> lengths_;
    QSize size_;
};

}  // namespace velorama
