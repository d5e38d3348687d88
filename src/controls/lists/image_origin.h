#pragma once

#include <QImage>

#include <memory>
#include <optional>

namespace velorama {

/// Where an image of an ImageList comes from again, so that it need not stay in memory while nobody
/// looks at it. Any call may come from any thread.
class ImageOrigin {
public:
    ImageOrigin() = default;
    ImageOrigin(const ImageOrigin&) = delete;
    ImageOrigin& operator=(const ImageOrigin&) = delete;
    virtual ~ImageOrigin() = default;

    enum class Kept { Yes, NotYet, No };
    /// Whether the image is laid by, exactly as it is, so that it would come back. NotYet: ask
    /// again in a second.
    virtual Kept isKept() const = 0;
    /// An origin that has `image`, which is this one's, in memory in few bytes; null if it cannot.
    virtual std::shared_ptr<const ImageOrigin> packed(const QImage& image) const = 0;

    /// The image from where it is laid by, in less than a millisecond; nothing if it is not there.
    virtual std::optional<QImage> find() const = 0;
    /// The image, however long that takes. If it is not laid by any more and what it was made from
    /// has changed, that which would be made now.
    virtual QImage make() const = 0;
};

}  // namespace velorama
