#pragma once

#include "platform/sound/media_player.h"
#include "support/sound_files.h"
#include "support/test_world.h"

#include <QTest>

#include <gtest/gtest.h>

namespace velorama::test {

/// A device that writes what would be heard to a file, as fast as it is asked to.
class WithMediaPlayer : public testing::Test {
protected:
    WithMediaPlayer() {
        qputenv("SDL_AUDIODRIVER", "disk");
        qputenv("SDL_DISKAUDIODELAY", "0");
    }

    /// In the clock's time instead, and heard by nobody.
    static void useRealTime() { qputenv("SDL_AUDIODRIVER", "dummy"); }

    bool open(const QString& path) {
        heardFiles.append(folder + QStringLiteral("/heard%1.raw").arg(heardFiles.size()));
        qputenv("SDL_DISKAUDIOFILE", heardFiles.last().toUtf8());
        return player->send(u"open \"" + path + u"\" type MPEGVideo alias CURRFILE");
    }
    bool send(const char* command) { return player->send(QString::fromUtf8(command)); }
    QString answer(const char* command) {
        QString text;
        player->send(QString::fromUtf8(command), &text);
        return text;
    }
    int length() { return answer("status CURRFILE length").toInt(); }
    int position() { return answer("status CURRFILE position").toInt(); }

    bool reaches(int milliseconds) {
        return QTest::qWaitFor([&] { return position() >= milliseconds; }, 60000);
    }
    /// The length of an MP3 is a guess until the file has been looked through, so it is asked anew.
    bool playsToItsEnd() {
        return send("play CURRFILE") &&
               QTest::qWaitFor([&] { return position() >= length(); }, 60000);
    }

    /// What was heard since the last open, or an earlier one by its number, as interleaved floats.
    /// The player is made anew: the end of the old one is when the file is whole.
    std::vector<float> heard(qsizetype opening = -1) {
        player = std::make_unique<MediaPlayer>();
        const QByteArray bytes =
            contentOf(opening < 0 ? heardFiles.last() : heardFiles.value(opening));
        std::vector<float> samples(static_cast<size_t>(bytes.size()) / sizeof(float));
        memcpy(samples.data(), bytes.constData(), samples.size() * sizeof(float));
        return samples;
    }

    QString folder = temporaryFolder();
    QStringList heardFiles;
    std::unique_ptr<MediaPlayer> player = std::make_unique<MediaPlayer>();
};

/// Without the silence at both ends.
inline std::vector<float> sounding(const std::vector<float>& samples) {
    const auto isSound = [](float sample) { return sample != 0; };
    const auto first = std::find_if(samples.begin(), samples.end(), isSound);
    const auto last = std::find_if(samples.rbegin(), samples.rend(), isSound).base();
    return first < last ? std::vector<float>(first, last) : std::vector<float>();
}

}  // namespace velorama::test
