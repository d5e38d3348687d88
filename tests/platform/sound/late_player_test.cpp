#include "platform/sound/late_player.h"

#include "platform/sound/media_world.h"

#include <QCoreApplication>

namespace velorama {
namespace {

class LatePlayerTest : public test::WithMediaPlayer {
protected:
    QString library =
        QCoreApplication::applicationDirPath() + QStringLiteral("/" VELORAMA_SOUND_LIBRARY);
    QString track = test::saved(folder, QStringLiteral("tone.wav"), test::wavFile(1000));
};

bool opens(MediaCommands& device, const QString& path) {
    return device.send(u"open \"" + path + u"\" type MPEGVideo alias CURRFILE");
}

TEST_F(LatePlayerTest, PlaysByTheLibrary) {
    qputenv("SDL_DISKAUDIOFILE", (folder + QStringLiteral("/late.raw")).toUtf8());
    const auto device = makeLatePlayer(library);
    ASSERT_TRUE(opens(*device, track));
    QString length;
    EXPECT_TRUE(device->send(QStringLiteral("status CURRFILE length"), &length));
    EXPECT_EQ(length, QStringLiteral("1000"));
    EXPECT_TRUE(device->send(QStringLiteral("play CURRFILE")));
    EXPECT_TRUE(device->send(QStringLiteral("close CURRFILE")));
}

TEST_F(LatePlayerTest, FailsBeforeATrackIsOpen) {
    const auto device = makeLatePlayer(library);
    QString answer = QStringLiteral("old");
    EXPECT_FALSE(device->send(QStringLiteral("play CURRFILE")));
    EXPECT_FALSE(device->send(QStringLiteral("status CURRFILE length"), &answer));
    EXPECT_EQ(answer, QString());
}

TEST_F(LatePlayerTest, TakesTheWordInAnyCaseAndAfterBlanks) {
    qputenv("SDL_DISKAUDIOFILE", (folder + QStringLiteral("/late.raw")).toUtf8());
    const auto device = makeLatePlayer(library);
    EXPECT_TRUE(device->send(u"  OPEN \"" + track + u"\" type MPEGVideo alias CURRFILE"));
}

TEST_F(LatePlayerTest, FailsInSilenceWithoutItsLibrary) {
    for (const QString& path : QStringList{folder + QStringLiteral("/none.so"), track, QString()}) {
        const auto device = makeLatePlayer(path);
        EXPECT_FALSE(opens(*device, track)) << path.toStdString();
        EXPECT_FALSE(device->send(QStringLiteral("play CURRFILE")));
    }
}

}  // namespace
}  // namespace velorama
