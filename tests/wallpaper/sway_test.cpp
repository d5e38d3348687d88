// The real thing, on a screen in memory.

#include "wallpaper_world.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <unistd.h>

namespace velorama::test {
namespace {

constexpr char settings[] = "set $HOME /nowhere\nset $mod Mod4\noutput * resolution 320x240\n";

class Sway : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(QDir().mkdir(run));
        QFile file(home.filePath(QStringLiteral("settings")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(settings);
        file.close();
        makeEnvironment();
        startSway();
        ASSERT_TRUE(desktop::waitFor([this] { return !socket().isEmpty(); }));
        environment.insert(QStringLiteral("SWAYSOCK"), socket());
        environment.insert(QStringLiteral("WAYLAND_DISPLAY"), QStringLiteral("wayland-1"));
    }
    void TearDown() override {
        sway.kill();
        sway.waitForFinished();
    }

    void makeEnvironment() {
        environment.insert(QStringLiteral("PATH"), qEnvironmentVariable("PATH"));
        environment.insert(QStringLiteral("HOME"), home.path());
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), run);
        environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
        environment.insert(QStringLiteral("WLR_BACKENDS"), QStringLiteral("headless"));
        environment.insert(QStringLiteral("WLR_RENDERER"), QStringLiteral("pixman"));
        environment.insert(QStringLiteral("WLR_LIBINPUT_NO_DEVICES"), QStringLiteral("1"));
    }
    /// It refuses to be root's; then it is nobody's.
    void startSway() {
        QStringList command = {QStringLiteral("sway"), QStringLiteral("-c"),
                               home.filePath(QStringLiteral("settings"))};
        if (getuid() == 0) {
            constexpr uid_t nobody = 65534;
            QFile::setPermissions(home.path(), QFile::Permissions(0x7755));
            ASSERT_EQ(chown(run.toLocal8Bit().constData(), nobody, nobody), 0);
            command =
                QStringList({QStringLiteral("setpriv"), QStringLiteral("--reuid=65534"),
                             QStringLiteral("--regid=65534"), QStringLiteral("--clear-groups"),
                             QStringLiteral("--pdeathsig=KILL")}) +
                command;
        }
        sway.setProcessEnvironment(environment);
        sway.setStandardErrorFile(QProcess::nullDevice());
        desktop::dieWithTest(sway);
        sway.start(command.takeFirst(), command);
        ASSERT_TRUE(sway.waitForStarted());
    }
    QString socket() const {
        const QDir folder(run);
        const QStringList found =
            folder.entryList({QStringLiteral("sway-ipc*.sock")}, QDir::System);
        return found.isEmpty() || !folder.exists(QStringLiteral("wayland-1"))
                   ? QString()
                   : folder.filePath(found.first());
    }
    BackgroundSession session() const {
        return {environment, QDBusConnection(QStringLiteral("no bus")), QDeadlineTimer(20000)};
    }
    bool shows(QColor colour) const {
        return desktop::waitFor([&] {
            const auto photograph = session().run(QStringLiteral("grim"), {QStringLiteral("-")});
            const QImage image = QImage::fromData(photograph.value_or(QByteArray()), "PNG");
            return image.pixelColor(160, 200) == colour;
        });
    }

    QTemporaryDir home{QDir::tempPath() + QStringLiteral("/velorama-sway-XXXXXX")};
    const QString run = home.filePath(QStringLiteral("run"));
    QProcessEnvironment environment;
    QProcess sway;
};

TEST_F(Sway, screenShowsThePictureAndTheNextOfTheSameName) {
    const QString file = home.filePath(QStringLiteral("Velorama Wallpaper.bmp"));
    writePicture(file, Qt::red);
    ASSERT_TRUE(setBackground(session(), file));
    ASSERT_TRUE(shows(Qt::red));
    writePicture(file, Qt::blue);
    ASSERT_TRUE(setBackground(session(), file));
    ASSERT_TRUE(shows(Qt::blue));
}

TEST_F(Sway, oddNamesAreShownAndRunNothing) {
    const QString plain = home.filePath(QStringLiteral("plain.bmp"));
    writePicture(plain, Qt::red);
    for (const QString& name : oddNames()) {
        const QString odd = home.filePath(name + QStringLiteral("/$mod w.bmp"));
        writePicture(odd, Qt::yellow);
        // A command of sway cannot hold a line break.
        const bool possible = !name.contains(u'\n');
        EXPECT_EQ(setSwayBackground(session(), odd), possible) << name.toStdString();
        ASSERT_TRUE(!possible || shows(Qt::yellow)) << name.toStdString();
        ASSERT_TRUE(setSwayBackground(session(), plain));
        ASSERT_TRUE(shows(Qt::red));
    }
    EXPECT_FALSE(QFile::exists(home.filePath(QStringLiteral("hacked"))));
    EXPECT_FALSE(QFile::exists(QStringLiteral("hacked")));
}

TEST_F(Sway, compositorThatIsGoneIsNoSuccess) {
    const QString plain = home.filePath(QStringLiteral("plain.bmp"));
    writePicture(plain, Qt::red);
    sway.kill();
    sway.waitForFinished();
    EXPECT_FALSE(setBackground(session(), plain));
}

}  // namespace
}  // namespace velorama::test
