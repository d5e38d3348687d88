#include "wallpaper_world.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

namespace velorama::test {
namespace {

/// The desktops whose settings are GLib's, over the real schemas and a file of the test's own.
class GlibSettings : public WallpaperWorld {
protected:
    static QStringList keyfile() { return {QStringLiteral("GSETTINGS_BACKEND=keyfile")}; }

    QString stored(const QString& schema, const QString& key) const {
        const auto output = session(keyfile()).run(QStringLiteral("gsettings"),
                                                   {QStringLiteral("get"), schema, key});
        return fromSettingText(QString::fromUtf8(output.value_or(QByteArray())).trimmed());
    }
    void store(const QString& schema, const QString& key, const QString& value) const {
        session(keyfile()).run(QStringLiteral("gsettings"),
                               {QStringLiteral("set"), schema, key, value});
    }
    /// A command of that name, first in the path, that notes its arguments and goes on as the real
    /// one.
    void noteCommands() {
        const QString folder = screen->home() + QStringLiteral("/bin");
        ASSERT_TRUE(QDir().mkpath(folder));
        QFile script(folder + QStringLiteral("/gsettings"));
        ASSERT_TRUE(script.open(QIODevice::WriteOnly));
        script.write("#!/bin/sh\necho \"$1 $3 $4\" >> '" + notes().toUtf8() + "'\nexec '" +
                     QStandardPaths::findExecutable(QStringLiteral("gsettings")).toUtf8() +
                     "' \"$@\"\n");
        script.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        script.close();
        pathBefore_ = qgetenv("PATH");
        qputenv("PATH", folder.toUtf8() + ':' + pathBefore_);
    }
    void TearDown() override {
        if (!pathBefore_.isEmpty()) {
            qputenv("PATH", pathBefore_);
        }
        WallpaperWorld::TearDown();
    }
    QString notes() const { return screen->home() + QStringLiteral("/notes"); }

    const QString gnome = QStringLiteral("org.gnome.desktop.background");
    const QString cinnamon = QStringLiteral("org.cinnamon.desktop.background");
    const QString mate = QStringLiteral("org.mate.background");

private:
    QByteArray pathBefore_;
};

TEST_F(GlibSettings, gnomeGetsThePictureForLightAndDark) {
    ASSERT_TRUE(setGnomeBackground(session(keyfile()), file));
    const QString address = QStringLiteral("file://") + screen->dataFolder() +
                            QStringLiteral("/it%27s%20100%25%20%231/Velorama%20Wallpaper.bmp");
    EXPECT_EQ(stored(gnome, QStringLiteral("picture-uri")), address);
    EXPECT_EQ(stored(gnome, QStringLiteral("picture-uri-dark")), address);
}

TEST_F(GlibSettings, plainColourGivesWayToThePicture) {
    const QString key = QStringLiteral("picture-options");
    for (const auto& [schema, set] :
         {std::pair(gnome, &setGnomeBackground), std::pair(cinnamon, &setCinnamonBackground),
          std::pair(mate, &setMateBackground)}) {
        store(schema, key, QStringLiteral("none"));
        ASSERT_TRUE(set(session(keyfile()), file));
        EXPECT_EQ(stored(schema, key), QStringLiteral("zoom"));
        store(schema, key, QStringLiteral("centered"));
        ASSERT_TRUE(set(session(keyfile()), file));
        EXPECT_EQ(stored(schema, key), QStringLiteral("centered"));
    }
}

TEST_F(GlibSettings, oddNamesArriveAsTheyAre) {
    for (const QString& name : oddNames()) {
        const QString odd = screen->dataFolder() + u'/' + name + QStringLiteral("/w.bmp");
        writePicture(odd, Qt::red);
        EXPECT_TRUE(setGnomeBackground(session(keyfile()), odd)) << name.toStdString();
        EXPECT_TRUE(setCinnamonBackground(session(keyfile()), odd)) << name.toStdString();
        EXPECT_TRUE(setMateBackground(session(keyfile()), odd)) << name.toStdString();
        EXPECT_EQ(stored(gnome, QStringLiteral("picture-uri")), fileAddress(odd));
        EXPECT_EQ(stored(cinnamon, QStringLiteral("picture-uri")), fileAddress(odd));
        EXPECT_EQ(stored(mate, QStringLiteral("picture-filename")), odd);
    }
    EXPECT_FALSE(QFile::exists(QStringLiteral("hacked")));
}

TEST_F(GlibSettings, sameNameIsTakenAwayFirst) {
    noteCommands();
    const auto writes = [this] {
        QFile noted(notes());
        EXPECT_TRUE(noted.open(QIODevice::ReadOnly));
        return QString::fromUtf8(noted.readAll())
            .split(u'\n')
            .filter(QStringLiteral("set picture-uri "));
    };
    const QString set = QStringLiteral("set picture-uri ") + settingText(fileAddress(file));
    ASSERT_TRUE(setGnomeBackground(session(keyfile()), file));
    EXPECT_EQ(writes(), QStringList(set));
    ASSERT_TRUE(setGnomeBackground(session(keyfile()), file));
    EXPECT_EQ(writes(), QStringList({set, QStringLiteral("set picture-uri ''"), set}));
}

TEST_F(GlibSettings, settingThatDoesNotLastIsNoSuccess) {
    // Each command has a memory of its own, which ends with it.
    EXPECT_FALSE(setGnomeBackground(session({QStringLiteral("GSETTINGS_BACKEND=memory")}), file));
}

TEST_F(GlibSettings, desktopIsChosenByItsName) {
    const auto set = [this](const char* name) {
        return setBackground(
            session(keyfile() +
                    QStringList(QStringLiteral("XDG_CURRENT_DESKTOP=") + QLatin1String(name))),
            file);
    };
    ASSERT_TRUE(set("MATE"));
    EXPECT_EQ(stored(mate, QStringLiteral("picture-filename")), file);
    EXPECT_NE(stored(cinnamon, QStringLiteral("picture-uri")), fileAddress(file));
    ASSERT_TRUE(set("X-Cinnamon"));
    EXPECT_EQ(stored(cinnamon, QStringLiteral("picture-uri")), fileAddress(file));
    EXPECT_NE(stored(gnome, QStringLiteral("picture-uri")), fileAddress(file));
    ASSERT_TRUE(set("ubuntu:GNOME"));
    EXPECT_EQ(stored(gnome, QStringLiteral("picture-uri")), fileAddress(file));
}

}  // namespace
}  // namespace velorama::test
