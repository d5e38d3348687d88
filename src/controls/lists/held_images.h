#pragma once

#include "controls/lists/image_origin.h"

#include <QFuture>
#include <QImage>

#include <list>
#include <memory>
#include <optional>
#include <vector>

namespace velorama {

/// Images by number, from 0, of which only those used last stay in memory. Given up is an image
/// only when its origin can give it again: laid by there, or else packed. Finding that out is work
/// for another thread, and it may take until a later call for an image to go.
class HeldImages {
public:
    /// An image without an origin stays, and is none of those that are counted.
    void add(const QImage& image, std::shared_ptr<const ImageOrigin> origin);
    void clear();
    int count() const { return static_cast<int>(entries_.size()); }

    /// The image, wherever it has to come from.
    QImage image(int number) const;
    /// The image if it is in memory or soon found, where it then stays as the one used last.
    std::optional<QImage> atHand(int number);
    /// Null outside, and for an image that stays.
    std::shared_ptr<const ImageOrigin> origin(int number) const;
    /// Takes in what `origin` made. Nothing happens if the image has got another by now.
    void restore(int number, const std::shared_ptr<const ImageOrigin>& origin, const QImage& image);

private:
    struct Entry {
        QImage image;
        std::shared_ptr<const ImageOrigin> origin;
        /// The origin gives the image again.
        bool isLaidBy = false;
        /// In held_, while the image is in memory and has an origin.
        std::list<int>::iterator place;
    };
    struct Question {
        int number = 0;
        QImage image;
        std::shared_ptr<const ImageOrigin> origin;
    };
    /// `given` has the image from now on; null: not yet.
    struct Answer {
        int number = 0;
        std::shared_ptr<const ImageOrigin> asked;
        std::shared_ptr<const ImageOrigin> given;
    };
    using Answers = std::vector<Answer>;

    static Answers answer(const std::vector<Question>& questions);

    bool has(int number) const { return number >= 0 && number < count(); }
    void hold(int number, const QImage& image);
    void drop(int number);
    void trim();
    void ask();
    void take(const Answers& answers);

    std::vector<Entry> entries_;
    /// Numbers of the images in memory that have an origin, the one used last at the end.
    std::list<int> held_;
    qsizetype bytes_ = 0;  // of these
    std::optional<QFuture<Answers>> asking_;
};

}  // namespace velorama
