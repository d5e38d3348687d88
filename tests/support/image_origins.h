#pragma once

#include "controls/lists/image_list.h"

#include <QSemaphore>

#include <atomic>
#include <memory>
#include <mutex>
#include <vector>

namespace velorama::test {

/// What the origins of a test have in common: what they answer, and what they were asked for.
struct ImageStore {
    std::atomic<ImageOrigin::Kept> kept = ImageOrigin::Kept::Yes;
    std::atomic<bool> canFind = true;
    std::atomic<bool> canPack = true;
    /// Making waits for it; free at first.
    QSemaphore gate{1'000'000};

    std::atomic<int> asked = 0;
    std::atomic<int> found = 0;
    std::atomic<int> foundPacked = 0;

    std::vector<int> made() const {
        const std::lock_guard guard(lock);
        return made_;
    }
    void noteMade(int number) {
        const std::lock_guard guard(lock);
        made_.push_back(number);
    }

private:
    mutable std::mutex lock;
    std::vector<int> made_;
};

class TestOrigin : public ImageOrigin {
public:
    TestOrigin(std::shared_ptr<ImageStore> store, const QImage& image, int number,
               bool isPacked = false)
        : store_(std::move(store)), image_(image), number_(number), isPacked_(isPacked) {}

    Kept isKept() const override {
        ++store_->asked;
        return store_->kept;
    }
    std::shared_ptr<const ImageOrigin> packed(const QImage& image) const override {
        return store_->canPack ? std::make_shared<TestOrigin>(store_, image, number_, true)
                               : nullptr;
    }
    std::optional<QImage> find() const override {
        if (!isPacked_ && !store_->canFind) {
            return std::nullopt;
        }
        ++(isPacked_ ? store_->foundPacked : store_->found);
        return image_;
    }
    QImage make() const override {
        store_->gate.acquire();
        store_->noteMade(number_);
        return image_;
    }

private:
    std::shared_ptr<ImageStore> store_;
    QImage image_;
    int number_;
    bool isPacked_;
};

/// A megabyte as a list holds it; all share the pixels.
inline QImage megabyte() {
    static const QImage image = [] {
        QImage made(512, 512, QImage::Format_RGB32);
        made.fill(Qt::gray);
        return made;
    }();
    return image;
}

/// Adds so many images that of those before none stays in memory that could come back.
inline void pushOut(ImageList& list) {
    const auto store = std::make_shared<ImageStore>();
    for (int i = 0; i < 200; ++i) {
        list.Add(QStringLiteral("filler %1").arg(list.Count()), megabyte(),
                 std::make_shared<TestOrigin>(store, megabyte(), 0));
    }
}

}  // namespace velorama::test
