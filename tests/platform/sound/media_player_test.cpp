#include "media_world.h"

#include <QDir>
#include <QtEndian>

namespace velorama {
namespace {

using namespace test;

class MediaPlayerTest : public WithMediaPlayer {};

TEST_F(MediaPlayerTest, LengthsAreExact) {
    struct Row {
        QString path;
        int milliseconds;
    };
    const Row rows[] = {
        {saved(folder, QStringLiteral("a.wav"), wavFile(5500)), 5500},
        {mp3File(folder, QStringLiteral("a.mp3"), wavFile(7250)), 7250},
        {saved(folder, QStringLiteral("a.mid"), sixSecondsOfMidi()), 6000},
        {saved(folder, QStringLiteral("a.rmi"), riffWrapped(sixSecondsOfMidi())), 6000},
    };
    for (const Row& row : rows) {
        ASSERT_TRUE(open(row.path)) << row.path.toStdString();
        EXPECT_EQ(length(), row.milliseconds) << row.path.toStdString();
        EXPECT_EQ(position(), 0);
        EXPECT_TRUE(send("close CURRFILE"));
    }
}

// The file itself is longer by what the coder adds in front and behind: up to 3 frames of 1152.
TEST_F(MediaPlayerTest, VariableRateWithoutALengthTagHasItsLength) {
    QByteArray wav = wavFile(15000);
    const QByteArray quiet(wav.size() - 44, 0);
    wav = wavHead(static_cast<quint32>(2 * quiet.size())) + wav.mid(44) + quiet;
    ASSERT_TRUE(open(mp3File(folder, QStringLiteral("v.mp3"), wav,
                             {QStringLiteral("-V"), QStringLiteral("2"), QStringLiteral("-t")})));
    EXPECT_GE(length(), 30000);
    EXPECT_LE(length(), 30000 + 3 * 1152 * 1000 / 44100);
}

TEST_F(MediaPlayerTest, ContentDecidesAndNotTheName) {
    EXPECT_TRUE(open(saved(folder, QStringLiteral("a.mp3"), wavFile(300))));
    EXPECT_EQ(length(), 300);
    send("close CURRFILE");
    EXPECT_TRUE(open(saved(folder, QStringLiteral("b.wav"), sixSecondsOfMidi())));
    EXPECT_EQ(length(), 6000);
}

TEST_F(MediaPlayerTest, EverySampleOfAWavFileIsHeard) {
    const QByteArray wav = wavFile(1240);
    ASSERT_TRUE(open(saved(folder, QStringLiteral("a.wav"), wav)));
    ASSERT_TRUE(playsToItsEnd());
    EXPECT_EQ(position(), 1240);
    send("close CURRFILE");

    const auto* samples = reinterpret_cast<const qint16*>(wav.constData() + 44);
    std::vector<float> written;
    for (qsizetype i = 0; i < (wav.size() - 44) / 2; ++i) {
        written.push_back(static_cast<float>(samples[i]) / 32768);
    }
    EXPECT_EQ(sounding(heard()), sounding(written));
}

TEST_F(MediaPlayerTest, AnMp3IsHeardWithoutTheCodersPadding) {
    ASSERT_TRUE(open(mp3File(folder, QStringLiteral("a.mp3"), wavFile(2000))));
    ASSERT_TRUE(playsToItsEnd());
    send("close CURRFILE");
    EXPECT_NEAR(static_cast<double>(sounding(heard()).size()), 2 * 2 * 44100, 8);
}

TEST_F(MediaPlayerTest, WavOfEverySampleFormatPlays) {
    const QString source = saved(folder, QStringLiteral("a.wav"), wavFile(500));
    const QStringList formats[] = {
        {QStringLiteral("-b8"), QStringLiteral("-eunsigned-integer")},
        {QStringLiteral("-b24")},
        {QStringLiteral("-b32"), QStringLiteral("-efloating-point")},
        {QStringLiteral("-eu-law")},
        {QStringLiteral("-eima-adpcm")},
        {QStringLiteral("-r8000")},
        {QStringLiteral("-r96000")},
        {QStringLiteral("-c1")},
        {QStringLiteral("-c3")},
        {QStringLiteral("-c6")},
    };
    const QString target = folder + QStringLiteral("/b.wav");
    for (const QStringList& format : formats) {
        run(QStringLiteral("sox"), QStringList{source} + format + QStringList{target});
        ASSERT_TRUE(open(target)) << format.join(u' ').toStdString();
        EXPECT_NEAR(length(), 500, 12) << format.join(u' ').toStdString();
        EXPECT_TRUE(playsToItsEnd());
        send("close CURRFILE");
        const std::vector<float> sound = sounding(heard());
        ASSERT_FALSE(sound.empty()) << format.join(u' ').toStdString();
        EXPECT_GT(*std::max_element(sound.begin(), sound.end()), 0.3);
    }
}

/// The file of 22,050 frames in another head: `kind`, its size, chunks in front, the data's size.
QByteArray waveIn(const char* kind, quint32 size, const QByteArray& chunks, quint32 dataSize) {
    const QByteArray wav = wavFile(500);
    const auto number = [](quint32 value) {
        QByteArray bytes(4, 0);
        qToLittleEndian(value, bytes.data());
        return bytes;
    };
    return kind + number(size) + "WAVE" + chunks + wav.mid(12, 24) + "data" + number(dataSize) +
           wav.mid(44);
}

TEST_F(MediaPlayerTest, WavOfEveryHeadPlays) {
    constexpr quint32 samples = 22050 * 2;
    constexpr quint32 data = samples * 2;
    constexpr quint32 unknown = 0xffffffffU;
    const auto ds64 = [](quint64 size, quint64 dataSize) {
        QByteArray bytes = "ds64" + QByteArray::fromHex("1c000000") + QByteArray(28, 0);
        qToLittleEndian(size, bytes.data() + 8);
        qToLittleEndian(dataSize, bytes.data() + 16);
        return bytes;
    };
    struct Row {
        const char* name;
        QByteArray bytes;
    };
    const Row rows[] = {
        {"streamed-no-sizes", waveIn("RIFF", 0, {}, 0)},
        {"streamed-size-of-the-head", waveIn("RIFF", 36, {}, 0)},
        {"streamed-largest-sizes", waveIn("RIFF", unknown, {}, unknown)},
        {"streamed-largest-and-none", waveIn("RIFF", unknown, {}, 0)},
        {"streamed-half-of-the-largest", waveIn("RIFF", 0x80000024U, {}, 0x7ffff000U)},
        {"rf64", waveIn("RF64", unknown, ds64(72 + data, data), unknown)},
        {"rf64-streamed", waveIn("RF64", unknown, ds64(0, 0), unknown)},
        {"rf64-streamed-largest", waveIn("RF64", unknown, ds64(~0ULL, ~0ULL), unknown)},
    };
    for (const Row& row : rows) {
        ASSERT_TRUE(open(saved(folder, QStringLiteral("a.wav"), row.bytes))) << row.name;
        EXPECT_EQ(length(), 500) << row.name;
        EXPECT_TRUE(playsToItsEnd()) << row.name;
        send("close CURRFILE");
        EXPECT_NEAR(static_cast<double>(sounding(heard()).size()), samples, 4) << row.name;
    }
}

TEST_F(MediaPlayerTest, WavOfTheOtherByteOrderPlays) {
    const QString source = saved(folder, QStringLiteral("a.wav"), wavFile(500));
    const QString target = folder + QStringLiteral("/b.wav");
    run(QStringLiteral("sox"), {source, QStringLiteral("-B"), target});
    const QByteArray whole = contentOf(target);
    ASSERT_TRUE(whole.startsWith("RIFX"));
    QByteArray streamed = whole;
    streamed.replace(4, 4, QByteArray(4, 0));
    streamed.replace(streamed.indexOf("data") + 4, 4, QByteArray(4, 0));
    for (const QByteArray& bytes : {whole, streamed}) {
        ASSERT_TRUE(open(saved(folder, QStringLiteral("c.wav"), bytes)));
        EXPECT_EQ(length(), 500);
        EXPECT_TRUE(playsToItsEnd());
        send("close CURRFILE");
        const std::vector<float> sound = sounding(heard());
        ASSERT_FALSE(sound.empty());
        EXPECT_NEAR(*std::max_element(sound.begin(), sound.end()), 16000.0 / 32768, 0.001);
    }
}

TEST_F(MediaPlayerTest, FramesOfAnotherRateKeepTheTrackGoing) {
    const QStringList fast = {QStringLiteral("-t"), QStringLiteral("-b"), QStringLiteral("64"),
                              QStringLiteral("--resample"), QStringLiteral("44.1")};
    const QStringList slow = {QStringLiteral("-t"), QStringLiteral("-b"), QStringLiteral("64"),
                              QStringLiteral("--resample"), QStringLiteral("22.05")};
    const QByteArray both =
        contentOf(mp3File(folder, QStringLiteral("f.mp3"), wavFile(1000), fast)) +
        contentOf(mp3File(folder, QStringLiteral("s.mp3"), wavFile(1000), slow));
    ASSERT_TRUE(open(saved(folder, QStringLiteral("both.mp3"), both)));
    EXPECT_TRUE(playsToItsEnd());
}

TEST_F(MediaPlayerTest, ASecondOpenUnderTheAliasFailsAndTheTrackGoesOn) {
    const QString wav = saved(folder, QStringLiteral("a.wav"), wavFile(500));
    const QString other = saved(folder, QStringLiteral("b.wav"), wavFile(900));
    ASSERT_TRUE(open(wav));
    EXPECT_FALSE(open(other));
    EXPECT_EQ(length(), 500);
    EXPECT_TRUE(playsToItsEnd());
    EXPECT_FALSE(open(other));
    EXPECT_EQ(position(), 500);
    EXPECT_TRUE(send("close CURRFILE"));
    EXPECT_TRUE(open(other));
    EXPECT_EQ(length(), 900);
    EXPECT_EQ(position(), 0);
}

TEST_F(MediaPlayerTest, APauseHoldsThePositionAndPlayOrResumeEndsIt) {
    useRealTime();
    ASSERT_TRUE(open(saved(folder, QStringLiteral("a.wav"), wavFile(60000))));
    for (const char* goOn : {"play CURRFILE ", "Resume CURRFILE"}) {
        const int before = position();
        ASSERT_TRUE(send("play CURRFILE "));
        ASSERT_TRUE(reaches(before + 100));
        ASSERT_TRUE(send("pause CURRFILE"));
        const int held = position();
        QTest::qWait(300);
        EXPECT_EQ(position(), held);
        ASSERT_TRUE(send(goOn));
        EXPECT_TRUE(reaches(held + 100));
        EXPECT_LT(position(), 30000);
    }
}

TEST_F(MediaPlayerTest, ResumeStartsNoTrackThatWasNotPlayed) {
    useRealTime();
    ASSERT_TRUE(open(saved(folder, QStringLiteral("a.wav"), wavFile(5000))));
    EXPECT_TRUE(send("Resume CURRFILE"));
    QTest::qWait(300);
    EXPECT_EQ(position(), 0);
}

TEST_F(MediaPlayerTest, CommandsAreReadWithoutRegardToCaseAndBlanks) {
    const QString wav = saved(folder, QStringLiteral("a.wav"), wavFile(500));
    EXPECT_TRUE(player->send(u" OPEN \"" + wav + u"\" TYPE mpegvideo ALIAS currfile "));
    EXPECT_TRUE(send("set CURRFILE time format s"));
    EXPECT_EQ(answer("STATUS currfile LENGTH"), QStringLiteral("500"));
    EXPECT_TRUE(send("Play CURRFILE "));
    EXPECT_TRUE(send("PAUSE CurrFile"));
    EXPECT_TRUE(send("resume CURRFILE"));
    EXPECT_TRUE(send("Close CURRFILE"));
}

TEST_F(MediaPlayerTest, EverythingElseFails) {
    const char* const never[] = {"",
                                 " ",
                                 "open",
                                 "stop CURRFILE",
                                 "open \"\" type MPEGVideo",
                                 "open a.wav alias CURRFILE",
                                 "nonsense \"CURRFILE\""};
    const char* const withoutTrack[] = {"play CURRFILE ",
                                        "pause CURRFILE",
                                        "Resume CURRFILE",
                                        "close CURRFILE",
                                        "set CURRFILE time format s",
                                        "status CURRFILE length",
                                        "status CURRFILE position",
                                        "play ",
                                        "close"};
    for (const char* command : never) {
        EXPECT_FALSE(send(command)) << command;
    }
    for (const char* command : withoutTrack) {
        EXPECT_FALSE(send(command)) << command;
        EXPECT_EQ(answer(command), QString()) << command;
    }
    ASSERT_TRUE(open(saved(folder, QStringLiteral("a.wav"), wavFile(500))));
    const char* const withTrack[] = {"play OTHER",          "status CURRFILE mode",
                                     "status CURRFILE",     "set CURRFILE volume 5",
                                     "status OTHER length", "close OTHER"};
    for (const char* command : withTrack) {
        EXPECT_FALSE(send(command)) << command;
        EXPECT_EQ(answer(command), QString()) << command;
    }
}

TEST_F(MediaPlayerTest, WithoutADeviceOpeningFailsUntilThereIsOne) {
    const QString wav = saved(folder, QStringLiteral("a.wav"), wavFile(500));
    qputenv("SDL_AUDIODRIVER", "nosuchdriver");
    // A busy machine may not know at once that there is none.
    open(wav);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !send("play CURRFILE "); }, 20000));
    EXPECT_EQ(answer("status CURRFILE length"), QString());
    qputenv("SDL_AUDIODRIVER", "disk");
    EXPECT_TRUE(open(wav));
    EXPECT_TRUE(playsToItsEnd());
}

TEST_F(MediaPlayerTest, ANameInLowerCaseFindsItsFile) {
    QDir(folder).mkdir(QStringLiteral("My Songs"));
    const QString path = saved(folder, QStringLiteral("My Songs/Été \"LIVE\".WAV"), wavFile(500));
    EXPECT_TRUE(open(folder + QStringLiteral("/my songs/été \"live\".wav")));
    EXPECT_EQ(length(), 500);
}

TEST_F(MediaPlayerTest, FoldersPipesAndMissingFilesAreRefused) {
    const QString pipe = folder + QStringLiteral("/pipe.mp3");
    run(QStringLiteral("mkfifo"), {pipe});
    QDir(folder).mkdir(QStringLiteral("folder.mp3"));
    const QStringList paths = {QString(),
                               folder,
                               folder + QStringLiteral("/folder.mp3"),
                               pipe,
                               folder + QStringLiteral("/missing.mp3"),
                               QStringLiteral("/dev/zero"),
                               QStringLiteral("C:\\music\\a.mp3")};
    for (const QString& path : paths) {
        EXPECT_FALSE(open(path)) << path.toStdString();
    }
}

TEST_F(MediaPlayerTest, AFileThatVanishesGoesOnAndOneCutShortEnds) {
    const QString gone = saved(folder, QStringLiteral("gone.wav"), wavFile(60000));
    ASSERT_TRUE(open(gone));
    ASSERT_TRUE(QFile::remove(gone));
    EXPECT_TRUE(playsToItsEnd());
    send("close CURRFILE");

    const QString cut = saved(folder, QStringLiteral("cut.wav"), wavFile(60000));
    ASSERT_TRUE(open(cut));
    ASSERT_TRUE(QFile::resize(cut, 100000));
    EXPECT_TRUE(playsToItsEnd());
    EXPECT_EQ(position(), 60000);
    send("close CURRFILE");
    EXPECT_LT(sounding(heard()).size(), 2U * 44100U);
}

TEST_F(MediaPlayerTest, TheSynthesizerPlaysOneFileLikeTheNext) {
    const QString midi = saved(folder, QStringLiteral("a.mid"), midiFile({{2, 69}, {2, 76}}));
    constexpr int times = 3;
    for (int i = 0; i < times; ++i) {
        ASSERT_TRUE(open(midi));
        ASSERT_TRUE(playsToItsEnd());
        send("close CURRFILE");
    }
    const double first = static_cast<double>(sounding(heard(0)).size());
    EXPECT_GT(first, 2 * 44100);
    for (int i = 1; i < times; ++i) {
        EXPECT_NEAR(static_cast<double>(sounding(heard(i)).size()), first, 2000);
    }
}

TEST_F(MediaPlayerTest, MidiOfEveryTimingAndAnyNumberOfTracksIsHeardAlike) {
    const QByteArray usual = midiFile({{3, 69}});
    // 960 ticks a second, as 480 ticks a beat make them at 120 beats a minute.
    const QByteArray frames = midiHead(1, 0xe828) + usual.mid(14);
    QByteArray tracks = midiHead(301, 480);
    for (int i = 0; i < 300; ++i) {
        tracks += midiTrack(QByteArray::fromHex("00ff2f00"));
    }
    tracks += usual.mid(14);
    const QByteArray large =
        usual.first(14) +
        midiTrack(QByteArray::fromHex("00ff01") + QByteArray::fromHex("81808000") +
                  QByteArray(1 << 21, 'a') + QByteArray::fromHex("00ff01") +
                  QByteArray::fromHex("81808000") + QByteArray(1 << 21, 'a') + usual.mid(22));
    struct Row {
        const char* name;
        QByteArray bytes;
    };
    const Row rows[] = {{"usual.mid", usual},
                        {"frames.mid", frames},
                        {"tracks.mid", tracks},
                        {"large.mid", large},
                        {"usual-again.mid", usual}};
    for (const Row& row : rows) {
        ASSERT_TRUE(open(saved(folder, QString::fromLatin1(row.name), row.bytes))) << row.name;
        EXPECT_EQ(length(), 1500) << row.name;
        ASSERT_TRUE(playsToItsEnd()) << row.name;
        send("close CURRFILE");
    }
    const double first = static_cast<double>(sounding(heard(0)).size());
    EXPECT_GT(first, 2 * 1.4 * 44100);
    for (int i = 1; i < 5; ++i) {
        EXPECT_NEAR(static_cast<double>(sounding(heard(i)).size()), first, 2000) << rows[i].name;
    }
}

TEST_F(MediaPlayerTest, AFontThatDoesNotLoadFailsMidiOnly) {
    MediaPlayer fontless(saved(folder, QStringLiteral("bad.sf2"), "nonsense"));
    const QString form = QStringLiteral("open \"%1\" type MPEGVideo alias CURRFILE");
    EXPECT_FALSE(
        fontless.send(form.arg(saved(folder, QStringLiteral("a.mid"), sixSecondsOfMidi()))));
    EXPECT_TRUE(fontless.send(form.arg(saved(folder, QStringLiteral("a.wav"), wavFile(500)))));
}

TEST(MediaCommandsTest, TheNullDeviceRefusesEverything) {
    MediaCommands none;
    QString answer = QStringLiteral("old");
    EXPECT_FALSE(none.send(QStringLiteral("play CURRFILE "), &answer));
    EXPECT_EQ(answer, QString());
}

}  // namespace
}  // namespace velorama
