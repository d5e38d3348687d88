#include "browse/browse_world.h"
#include "calls/call_world.h"
#include "support/folder_files.h"

#include <QFileInfo>

namespace velorama::test {
namespace {

/// A desktop whose command for the background notes what it is told.
class WallpaperCallTest : public testing::Test {
protected:
    WallpaperCallTest() {
        const QString commands = temporaryFolder();
        const QString command = commands + QStringLiteral("/swaymsg");
        saveBytes(command,
                  "#!/bin/sh\nprintf '%s\\n' \"$@\" >\"$HOME/told\"\n"
                  "echo '[{\"success\":true}]'\n");
        QFile::setPermissions(command, QFile::ReadOwner | QFile::ExeOwner);
        environment.insert(QStringLiteral("PATH"),
                           commands + u':' + environment.value(QStringLiteral("PATH")));
        environment.insert(QStringLiteral("XDG_CURRENT_DESKTOP"), QStringLiteral("sway"));
        environment.insert(QStringLiteral("SWAYSOCK"), QStringLiteral("/none"));
    }
    Outcome call(const QString& picture) const {
        return callProgram({QStringLiteral("--wallpaper"), picture}, environment);
    }

    QProcessEnvironment environment = homeWithoutDisplay();
    QString home = environment.value(QStringLiteral("HOME"));
    QString bitmap = home + QStringLiteral("/.local/share/velorama/Velorama Wallpaper.bmp");
    QString folder = temporaryFolder();
};

TEST_F(WallpaperCallTest, TheDesktopIsPointedAtABitmapOfThePicture) {
    const QString picture =
        savePicture(folder, QString::fromUtf8("it's 100% \u00e4.jpg"), {31, 17});
    const Outcome outcome = call(picture);
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.err.toStdString(), "");
    EXPECT_EQ(outcome.out.toStdString(), "");
    const QImage shown(bitmap);
    EXPECT_EQ(shown.size(), QSize(31, 17));
    EXPECT_TRUE(readFile(bitmap).startsWith("BM"));
    EXPECT_TRUE(readFile(home + QStringLiteral("/told")).contains("Wallpaper"));
    EXPECT_EQ(filesBelow(home).size(), 2) << "nothing else is written";
}

TEST_F(WallpaperCallTest, WhatCannotBeDoneIsTold) {
    expectOneLine(call(folder + QStringLiteral("/gone.jpg")), 1,
                  QStringLiteral("/gone.jpg: no such file or folder"));
    const QString text = folder + QStringLiteral("/text.jpg");
    saveBytes(text, "no picture");
    expectOneLine(call(text), 1, text + u": it is no picture that can be loaded");
    EXPECT_FALSE(QFileInfo::exists(bitmap));
    EXPECT_FALSE(QFileInfo::exists(home + QStringLiteral("/told")));
}

TEST_F(WallpaperCallTest, WithoutADesktopNobodyTakesIt) {
    environment = homeWithoutDisplay();
    const QString picture = savePicture(folder, QStringLiteral("a.bmp"));
    expectOneLine(call(picture), 1, picture + u": no desktop has taken it");
    environment.insert(QStringLiteral("HOME"), QStringLiteral("/proc/no such home"));
    expectOneLine(call(picture), 1, QStringLiteral("Velorama Wallpaper.bmp: no such file"));
}

}  // namespace
}  // namespace velorama::test
