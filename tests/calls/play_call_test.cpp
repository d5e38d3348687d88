#include "calls/call_options.h"
#include "calls/call_world.h"
#include "support/test_world.h"

#include <QDir>
#include <QFile>
#include <QImage>

#include <gtest/gtest.h>

namespace velorama::test {
namespace {

std::optional<Call> said(const QStringList& words) {
    return callOf(QStringList{QStringLiteral("velorama"), QStringLiteral("--play")} + words);
}

std::string mistake(const QStringList& words) {
    const auto call = said(words);
    const auto* wrong = call ? std::get_if<WrongCall>(&*call) : nullptr;
    return wrong != nullptr ? wrong->message.toStdString() : std::string();
}

QString word(const char* text) {
    return QString::fromUtf8(text);
}

TEST(PlayOptions, AreTakenInAnyOrder) {
    const auto call = said({word("our trip.vlr"), word("--once"), word("--music"), word("a.mp3"),
                            word("b c.wav"), word("--interval"), word("0.5"), word("--music"),
                            word("d.mid"), word("--screen"), word("2"), word("--lock")});
    const auto* play = call ? std::get_if<PlayCall>(&*call) : nullptr;
    ASSERT_NE(play, nullptr);
    EXPECT_EQ(play->album, word("our trip.vlr"));
    EXPECT_EQ(play->screen, 2);
    EXPECT_EQ(play->interval, 0.5);
    QStringList music = play->music;
    music.sort();
    EXPECT_EQ(music, QStringList({word("a.mp3"), word("b c.wav"), word("d.mid")}));
    EXPECT_TRUE(play->lock);
    EXPECT_TRUE(play->once);
}

TEST(PlayOptions, OfNothingSaidAreThoseOfTheSettings) {
    const auto call = said({word("a.vlr")});
    const auto* play = call ? std::get_if<PlayCall>(&*call) : nullptr;
    ASSERT_NE(play, nullptr);
    EXPECT_EQ(play->screen, 0);
    EXPECT_FALSE(play->interval.has_value());
    EXPECT_TRUE(play->music.isEmpty());
    EXPECT_FALSE(play->lock || play->once);
}

TEST(PlayOptions, WrongOnesAreNamed) {
    EXPECT_EQ(mistake({word("a.vlr"), word("--screen"), word("0")}),
              "--screen takes a whole number from 1, not 0");
    EXPECT_EQ(mistake({word("a.vlr"), word("--interval"), word("0.05")}),
              "--interval takes a number from 0.1 to 86400, not 0.05");
    EXPECT_EQ(mistake({word("a.vlr"), word("--interval"), word("nan")}),
              "--interval takes a number from 0.1 to 86400, not nan");
    EXPECT_EQ(mistake({word("a.vlr"), word("b.vlr")}), "one word too many: b.vlr");
    EXPECT_EQ(mistake({word("a.vlr"), word("--music"), QString()}), "--music needs a value");
    EXPECT_EQ(mistake({word("a.vlr"), word("--json")}), "--json does not go with --play");
}

/// What keeps a show from beginning is told before a display is looked for.
class PlayObstacles : public testing::Test {
protected:
    QString album(const QByteArray& text) const {
        QFile file(folder + QStringLiteral("/our trip.vlr"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        return file.fileName();
    }
    Outcome play(const QString& path, const QStringList& options = {}) const {
        return callProgram(QStringList{QStringLiteral("--play"), path} + options);
    }

    QString folder = temporaryFolder();
};

TEST_F(PlayObstacles, AreOneLineEach) {
    expectOneLine(play(folder + QStringLiteral("/none.vlr")), 1, QStringLiteral("/none.vlr: "));
    expectOneLine(play(folder), 1, folder + QStringLiteral(": "));
    expectOneLine(play(album("")), 1, QStringLiteral("our trip.vlr: the album has no slides"));
    expectOneLine(play(album("1|\r\n/nowhere/a.jpg\r\n")), 1,
                  QStringLiteral("our trip.vlr: none of the album's pictures is there"));
    // Too long for the settings, through which the show reads its slides.
    const QString deep = folder + u'/' + QString(120, u'a') + u'/' + QString(120, u'b');
    ASSERT_TRUE(QDir().mkpath(deep));
    QImage picture(4, 4, QImage::Format_RGB32);
    picture.fill(Qt::red);
    ASSERT_TRUE(picture.save(deep + QStringLiteral("/a.bmp")));
    expectOneLine(play(album(deep.toUtf8() + "/a.bmp\r\n" + deep.toUtf8() + "/a.bmp\r\n")), 1,
                  QStringLiteral("none of the album's pictures is there"));
    ASSERT_TRUE(picture.save(folder + QStringLiteral("/a.bmp")));
    const QString good = album("1|\r\n" + folder.toUtf8() + "/a.bmp\r\n");
    expectOneLine(play(good), 1, QStringLiteral("there is no display to show it on"));
    expectOneLine(play(good, {QStringLiteral("--music"), QStringLiteral("none.mp3")}), 1,
                  QStringLiteral("none.mp3: "));
}

/// Qt's screen in memory is a display, too.
TEST_F(PlayObstacles, NoneAndItComesToItsEnd) {
    QImage picture(4, 4, QImage::Format_RGB32);
    picture.fill(Qt::red);
    ASSERT_TRUE(picture.save(folder + QStringLiteral("/a.bmp")));
    QProcessEnvironment home = homeWithoutDisplay();
    home.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    const QString path = album("2|\r\na.bmp\r\n/nowhere/b.bmp\r\n");
    const Outcome outcome = callProgram({QStringLiteral("--play"), path, QStringLiteral("--once"),
                                         QStringLiteral("--interval"), QStringLiteral("0.1")},
                                        home, folder);
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out + outcome.err, QByteArray());
    EXPECT_FALSE(QFile::exists(home.value(QStringLiteral("HOME")) + QStringLiteral("/.config")));
}

}  // namespace
}  // namespace velorama::test
