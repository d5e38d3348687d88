#include "platform/sound/mp3_source.h"

#include "support/hanging_disk.h"
#include "support/sound_files.h"
#include "support/test_world.h"

#include <QBuffer>

#include <gtest/gtest.h>

#include <atomic>
#include <memory>

namespace velorama {
namespace {

using namespace test;

struct SlowDisk : HangingDisk {
    std::atomic<int> opened = 0;
};

/// A file that the disk gives up to a place in it.
class SlowFile : public QBuffer {
public:
    SlowFile(const std::shared_ptr<SlowDisk>& disk, const QByteArray& bytes, qint64 stuckFrom)
        : disk_(disk), stuckFrom_(stuckFrom) {
        setData(bytes);
        QBuffer::open(QIODevice::ReadOnly | QIODevice::Unbuffered);
        ++disk_->opened;
    }
    ~SlowFile() override { --disk_->opened; }

protected:
    qint64 readData(char* bytes, qint64 count) override {
        if (pos() >= stuckFrom_) {
            disk_->answer();
        }
        return QBuffer::readData(bytes, count);
    }

private:
    std::shared_ptr<SlowDisk> disk_;
    qint64 stuckFrom_;
};

class Mp3OnASlowDisk : public testing::Test {
protected:
    Mp3OnASlowDisk() {
        QByteArray wav = wavFile(15000);
        // The second half is silent and so coded in fewer bits: a guess from the first is wrong.
        const QByteArray quiet(wav.size() - 44, 0);
        wav = wavHead(static_cast<quint32>(2 * quiet.size())) + wav.mid(44) + quiet;
        bytes =
            contentOf(mp3File(temporaryFolder(), QStringLiteral("v.mp3"), wav,
                              {QStringLiteral("-V"), QStringLiteral("2"), QStringLiteral("-t")}));
    }
    ~Mp3OnASlowDisk() override { disk->goOn(); }

    /// The first to open the file reads all of it, and the one that looks for its length waits.
    std::unique_ptr<AudioSource> open() {
        return openMp3([this, first = true]() mutable {
            const qint64 stuckFrom = first ? bytes.size() + 1 : bytes.size() / 3;
            first = false;
            return std::make_unique<SlowFile>(disk, bytes, stuckFrom);
        });
    }

    QByteArray bytes;
    std::shared_ptr<SlowDisk> disk = std::make_shared<SlowDisk>();
    std::vector<float> sound = std::vector<float>(2 * std::size_t(44100));
};

TEST_F(Mp3OnASlowDisk, PlaysToItsEndBeforeItsLengthIsKnown) {
    const auto source = open();
    ASSERT_NE(source, nullptr);
    ASSERT_TRUE(disk->hangs());
    qint64 given = 0;
    for (int got = 1; got > 0; given += got) {
        // A second more than what was given, or the track would be over in the midst of it.
        EXPECT_GT(source->length(), given + 44100);
        got = source->read(sound.data(), 44100);
    }
    EXPECT_GT(given, 29 * 44100);
    EXPECT_EQ(disk->reading(), 1);
    disk->goOn();
    EXPECT_TRUE(comesTrue([&] { return source->length() == given; }));
    EXPECT_FALSE(disk->wasWaitedFor());
}

TEST_F(Mp3OnASlowDisk, IsLeftAtOnceAndNotReadOn) {
    auto source = open();
    ASSERT_NE(source, nullptr);
    ASSERT_TRUE(disk->hangs());
    source.reset();
    EXPECT_EQ(disk->reading(), 1);
    EXPECT_EQ(disk->opened, 1);
    const int reads = disk->reads();
    disk->goOn();
    EXPECT_TRUE(comesTrue([&] { return disk->opened == 0; }));
    EXPECT_EQ(disk->reads(), reads);
    EXPECT_FALSE(disk->wasWaitedFor());
}

TEST_F(Mp3OnASlowDisk, IsRefusedIfItDoesNotOpen) {
    EXPECT_EQ(openMp3([] { return std::unique_ptr<QIODevice>(); }), nullptr);
}

}  // namespace
}  // namespace velorama
