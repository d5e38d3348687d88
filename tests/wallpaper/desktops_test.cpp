// Desktops that Debian's packages bring and that run without a graphics card.

#include "wallpaper_world.h"

#include <QDir>
#include <QFile>

namespace velorama::test {
namespace {

class Xfce : public WallpaperWorld {
protected:
    void SetUp() override {
        WallpaperWorld::SetUp();
        const QDir libraries(QStringLiteral("/usr/lib"));
        for (const QString& one : libraries.entryList({QStringLiteral("*-linux-gnu*")})) {
            const QString daemon =
                libraries.filePath(one + QStringLiteral("/xfce4/xfconf/xfconfd"));
            if (QFile::exists(daemon)) {
                start(daemon);
            }
        }
        ASSERT_TRUE(waitForService(QStringLiteral("org.xfce.Xfconf")));
        start(QStringLiteral("xfdesktop"));
        ASSERT_TRUE(waitForService(QStringLiteral("org.xfce.xfdesktop")));
        // One a workspace of the window manager's; the desktop makes them one after the other.
        constexpr int workspaces = 4;
        ASSERT_TRUE(desktop::waitFor([this] { return pictures().size() == workspaces; }));
    }
    QStringList pictures() const {
        const auto list = screen->run(QStringLiteral("xfconf-query"),
                                      {QStringLiteral("-c"), QStringLiteral("xfce4-desktop"),
                                       QStringLiteral("-l"), QStringLiteral("-v")});
        return QString::fromUtf8(list.value_or(QByteArray()))
            .split(u'\n')
            .filter(QStringLiteral("last-image"));
    }
};

TEST_F(Xfce, everyWorkspaceShowsThePicture) {
    ASSERT_TRUE(setXfceBackground(session(), file));
    ASSERT_TRUE(shows(Qt::red));
    const QStringList all = pictures();
    ASSERT_FALSE(all.isEmpty());
    for (const QString& one : all) {
        EXPECT_TRUE(one.endsWith(QStringLiteral(" ") + file)) << one.toStdString();
    }
}

TEST_F(Xfce, sameNameShowsTheNewPicture) {
    ASSERT_TRUE(setBackground(session(), file));
    ASSERT_TRUE(shows(Qt::red));
    writePicture(file, Qt::blue);
    ASSERT_TRUE(setBackground(session(), file));
    ASSERT_TRUE(shows(Qt::blue));
}

TEST_F(Xfce, oddNamesAreShown) {
    for (const QString& name : oddNames()) {
        const QString odd = screen->dataFolder() + u'/' + name + QStringLiteral("/w.bmp");
        writePicture(odd, Qt::yellow);
        EXPECT_TRUE(setXfceBackground(session(), odd)) << name.toStdString();
        ASSERT_TRUE(shows(Qt::yellow)) << name.toStdString();
        ASSERT_TRUE(setXfceBackground(session(), file));
        ASSERT_TRUE(shows(Qt::red));
    }
}

TEST_F(Xfce, plainColourGivesWayToThePicture) {
    const QString property = pictures().first().section(u' ', 0, 0);
    ASSERT_TRUE(screen->run(
        QStringLiteral("xfconf-query"),
        {QStringLiteral("-c"), QStringLiteral("xfce4-desktop"), QStringLiteral("-p"),
         property.section(u'/', 0, -2) + QStringLiteral("/image-style"), QStringLiteral("-n"),
         QStringLiteral("-t"), QStringLiteral("int"), QStringLiteral("-s"), QStringLiteral("0")}));
    ASSERT_TRUE(setXfceBackground(session(), file));
    ASSERT_TRUE(shows(Qt::red));
}

TEST_F(Xfce, rootWindowBehindADesktopIsLeftAlone) {
    EXPECT_TRUE(desktop::waitFor([this] { return !setRootBackground(session(), file); }));
}

class Lxqt : public WallpaperWorld {
protected:
    void SetUp() override {
        WallpaperWorld::SetUp();
        start(QStringLiteral("pcmanfm-qt"),
              {QStringLiteral("--desktop"), QStringLiteral("--profile=lxqt")});
        ASSERT_TRUE(waitForService(QStringLiteral("org.pcmanfm.PCManFM")));
    }
    /// The name is there before the desktop answers.
    bool set(const QString& path) const {
        return desktop::waitFor([&] { return setBackground(session(), path); });
    }
};

TEST_F(Lxqt, desktopShowsThePictureAndTheNextOfTheSameName) {
    ASSERT_TRUE(set(file));
    ASSERT_TRUE(shows(Qt::red));
    writePicture(file, Qt::blue);
    ASSERT_TRUE(set(file));
    ASSERT_TRUE(shows(Qt::blue));
}

TEST_F(Lxqt, oddNamesAreShown) {
    for (const QString& name : oddNames()) {
        const QString odd = screen->dataFolder() + u'/' + name + QStringLiteral("/w.bmp");
        writePicture(odd, Qt::yellow);
        EXPECT_TRUE(set(odd)) << name.toStdString();
        ASSERT_TRUE(shows(Qt::yellow)) << name.toStdString();
        ASSERT_TRUE(set(file));
        ASSERT_TRUE(shows(Qt::red));
    }
}

}  // namespace
}  // namespace velorama::test
