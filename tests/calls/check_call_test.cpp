#include "albums/album_world.h"
#include "calls/call_world.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace velorama::test {
namespace {

class CheckCallTest : public WithAlbums {
protected:
    CheckCallTest() {
        QDir().mkpath(home + QStringLiteral("/.config/velorama"));
        saveBytes(home + QStringLiteral("/.config/velorama/drives"), "D: " + drive.toUtf8() + "\n");
        QDir().mkpath(drive + QStringLiteral("/Pics"));
    }
    Outcome check(const QString& albumFile, const QStringList& more = {}) const {
        return callProgram(QStringList{QStringLiteral("--check"), albumFile} + more, environment);
    }

    QProcessEnvironment environment = homeWithoutDisplay();
    QString home = environment.value(QStringLiteral("HOME"));
    QString drive = temporaryFolder();
    QString folder = temporaryFolder();
    QString plain = savePicture(folder, QString::fromUtf8("a, b \u00e4 100%.jpg"));
    QString other = savePicture(folder, QStringLiteral("Other.bmp"));
    QString driven = savePicture(
        (QDir().mkpath(drive + QStringLiteral("/Pics")), drive + QStringLiteral("/Pics")),
        QStringLiteral("D.JPG"));
    QString otherAsked = folder + QStringLiteral("/OTHER.bmp");
    QString drivenAsked = QStringLiteral("D:\\pics\\d.jpg");
};

TEST_F(CheckCallTest, ListsAnAlbumThatIsWhole) {
    const Outcome outcome = check(album(formA({plain, other})));
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.err.toStdString(), "");
    EXPECT_EQ(outcome.out.toStdString(),
              QString(u"ok       " + plain + u"\nok       " + other + u'\n').toStdString());
}

TEST_F(CheckCallTest, TellsWhereSlidesWereFoundAndWhichAreMissing) {
    const QString trip =
        album(formA({drivenAsked, otherAsked, QStringLiteral("E:\\gone.jpg"),
                     QStringLiteral("junk"), QStringLiteral("/x/gone too.jpg"), driven, other}));
    const Outcome outcome = check(trip);
    EXPECT_EQ(outcome.code, 1);
    const QString said = u"velorama: " + trip + u": 4 of 7 slides missing, first E:\\gone.jpg\n";
    EXPECT_EQ(outcome.err.toStdString(), said.toStdString());
    const QString told = u"drive    D:\\pics\\d.jpg -> " + driven + u"\ncase     " + otherAsked +
                         u" -> " + other +
                         u"\nmissing  E:\\gone.jpg\nmissing  junk\n"
                         u"missing  /x/gone too.jpg\nlost     " +
                         driven + u"\nok       " + other + u'\n';
    EXPECT_EQ(outcome.out.toStdString(), told.toStdString());
}

TEST_F(CheckCallTest, TellsScriptsTheSame) {
    const QString trip = album("4|by the sea\r\n" + plain.toUtf8() + "\r\n" + drivenAsked.toUtf8() +
                               "\r\n" + plain.toUtf8() + "\r\nE:\\gone \"x\".jpg\r\n\r\n");
    const Outcome outcome = check(trip, {QStringLiteral("--json")});
    EXPECT_EQ(outcome.code, 1);
    const QJsonObject told = QJsonDocument::fromJson(outcome.out).object();
    EXPECT_EQ(told.value(QStringLiteral("album")).toString(), trip);
    EXPECT_EQ(told.value(QStringLiteral("note")).toString(), QStringLiteral("by the sea"));
    // The window takes no slide twice.
    EXPECT_EQ(told.value(QStringLiteral("count")).toInt(), 3);
    EXPECT_EQ(told.value(QStringLiteral("missing")).toInt(), 1);
    const auto slide = [](const QString& path, const char* found, const QJsonValue& at) {
        return QJsonObject{{QStringLiteral("path"), path},
                           {QStringLiteral("found"), QLatin1String(found)},
                           {QStringLiteral("file"), at}};
    };
    EXPECT_EQ(told.value(QStringLiteral("slides")).toArray(),
              QJsonArray({slide(plain, "ok", plain), slide(drivenAsked, "drive", driven),
                          slide(QStringLiteral("E:\\gone \"x\".jpg"), "missing", {})}));
}

TEST_F(CheckCallTest, AnAlbumThatIsNotThereIsTold) {
    expectOneLine(check(folder + QStringLiteral("/gone.vlr")), 1,
                  QStringLiteral("/gone.vlr: no such file or folder"));
    EXPECT_EQ(check(album("")).code, 0);
}

TEST_F(CheckCallTest, TenThousandSlidesAreListed) {
    QStringList paths;
    for (int i = 0; i < 10'000; ++i) {
        paths.append(folder + u"/gone " + QString::number(i) + QStringLiteral(".jpg"));
    }
    const Outcome outcome = check(album(formA(paths)));
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.out.count('\n'), 10'000);
    EXPECT_EQ(outcome.out.count("missing  "), 10'000);
}

}  // namespace
}  // namespace velorama::test
