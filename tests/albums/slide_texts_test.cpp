#include "albums/slide_texts.h"

#include <QSemaphore>

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <stdexcept>

namespace velorama {
namespace {

using namespace std::chrono_literals;

QString joined(const QStringList& texts) {
    return texts.join(u' ');
}

/// A disk that tells each path back, but waits below "/hangs" until it is let go.
class Disk {
public:
    SlideTexts::TextOf look() const {
        return [gate = gate_](const QString& path) {
            if (path.startsWith(QStringLiteral("/hangs"))) {
                gate->acquire();
            }
            return QString(u'<' + path + u'>');
        };
    }
    void answer() { gate_->release(); }

private:
    std::shared_ptr<QSemaphore> gate_ = std::make_shared<QSemaphore>();
};

TEST(SlideTexts, AreWhatTheDiskTellsInTheirOrder) {
    SlideTexts texts(24h, Disk().look());
    EXPECT_EQ(joined(texts.of({QStringLiteral("/p/b"), QStringLiteral("/p/a")})),
              QStringLiteral("</p/b> </p/a>"));
    EXPECT_EQ(joined(texts.of({QStringLiteral("/p/c")})), QStringLiteral("</p/c>"));
    EXPECT_EQ(joined(texts.of({})), QString());
}

TEST(SlideTexts, AreNamesWhereTheDiskHangs) {
    Disk disk;
    SlideTexts texts(0ms, disk.look());
    EXPECT_EQ(joined(texts.of({QStringLiteral("/hangs/a.jpg")})), QStringLiteral("a.jpg"));
    disk.answer();
}

TEST(SlideTexts, AreNotWaitedForAgainUntilTheDiskAnswers) {
    Disk disk;
    int looks = 0;
    const auto slow = [look = disk.look(), &looks](const QString& path) {
        ++looks;
        return look(path);
    };
    SlideTexts texts(50ms, slow);
    const QStringList paths = {QStringLiteral("/hangs/a.jpg")};
    EXPECT_EQ(joined(texts.of(paths)), QStringLiteral("a.jpg"));
    EXPECT_EQ(joined(texts.of({QStringLiteral("/p/b.jpg")})), QStringLiteral("b.jpg"));
    disk.answer();
    disk.answer();
    // The thread ends when it likes.
    while (joined(texts.of(paths)) != QStringLiteral("</hangs/a.jpg>")) {
        disk.answer();
    }
    EXPECT_GT(looks, 1);
}

TEST(SlideTexts, AreNamesWhereALookFails) {
    SlideTexts texts(24h, [](const QString&) -> QString { throw std::runtime_error("full"); });
    EXPECT_EQ(joined(texts.of({QStringLiteral("/p/b.jpg")})), QStringLiteral("b.jpg"));
}

}  // namespace
}  // namespace velorama
