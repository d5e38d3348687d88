#include "wallpaper_world.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QSaveFile>
#include <QTest>

#include <future>

namespace velorama::test {
namespace {

QString freshName() {
    static int number = 0;
    return QStringLiteral("wallpaper%1").arg(++number);
}

}  // namespace

QStringList oddNames() {
    return {QStringLiteral("plain"),
            QStringLiteral("two  blanks"),
            QStringLiteral("'\"`"),
            QStringLiteral("100%20 #1?"),
            QStringLiteral(";touch hacked,&|<>"),
            QStringLiteral("$(touch hacked)$HOME${x}"),
            QStringLiteral("\"; touch hacked; \""),
            QStringLiteral("'); touch('hacked'); ('"),
            QStringLiteral("back\\slash\\n"),
            QString::fromUtf8("~\xC3\xBC\xE6\x97\xA5\xF0\x9F\x8C\x84{a,b}*[x]!"),
            QStringLiteral("two\nlines")};
}

void writePicture(const QString& file, QColor colour) {
    QDir().mkpath(QFileInfo(file).path());
    QImage picture(64, 48, QImage::Format_RGB32);
    picture.fill(colour);
    QSaveFile target(file);
    ASSERT_TRUE(target.open(QIODevice::WriteOnly));
    ASSERT_TRUE(picture.save(&target, "BMP"));
    ASSERT_TRUE(target.commit());
}

bool meanwhile(const std::function<bool()>& work) {
    auto result = std::async(std::launch::async, work);
    const bool done = QTest::qWaitFor(
        [&] { return result.wait_for(std::chrono::seconds(0)) == std::future_status::ready; },
        20000);
    return done && result.get();
}

void WallpaperWorld::SetUp() {
    screen = std::make_unique<desktop::DesktopSession>(options());
    ASSERT_TRUE(screen->isUp());
    file = screen->dataFolder() + QStringLiteral("/it's 100% #1/Velorama Wallpaper.bmp");
    writePicture(file, Qt::red);
    busName = freshName();
}

void WallpaperWorld::TearDown() {
    QDBusConnection::disconnectFromBus(busName);
    for (const auto& program : programs_) {
        program->kill();
        program->waitForFinished();
    }
    programs_.clear();
    screen.reset();
}

BackgroundSession WallpaperWorld::session(const QStringList& variables, int patience) const {
    const QProcessEnvironment environment = screen->environment(variables);
    const QString address = environment.value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
    return {environment, QDBusConnection::connectToBus(address, busName), QDeadlineTimer(patience)};
}

void WallpaperWorld::start(const QString& program, const QStringList& arguments) {
    programs_.push_back(std::make_unique<QProcess>());
    QProcess& process = *programs_.back();
    process.setProcessEnvironment(screen->environment());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    desktop::dieWithTest(process);
    process.start(program, arguments);
    ASSERT_TRUE(process.waitForStarted()) << program.toStdString();
}

bool WallpaperWorld::waitForService(const QString& name) const {
    return desktop::waitFor([&] { return session().hasService(name); });
}

bool WallpaperWorld::shows(QColor colour, QPoint at) const {
    return desktop::waitFor([&] { return screen->glance().pixelColor(at) == colour; });
}

NotingService::NotingService(const QString& address, const QString& name, Answer answer)
    : connection_(freshName()), answer_(std::move(answer)) {
    QDBusConnection bus = QDBusConnection::connectToBus(address, connection_);
    EXPECT_TRUE(bus.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SubPath));
    EXPECT_TRUE(bus.registerService(name));
}

NotingService::~NotingService() {
    QDBusConnection::disconnectFromBus(connection_);
}

bool NotingService::handleMessage(const QDBusMessage& message, const QDBusConnection& bus) {
    calls.push_back(message);
    const QVariantList answer = answer_(message);
    return bus.send(answer.isEmpty()
                        ? message.createErrorReply(QDBusError::UnknownMethod, QStringLiteral("no"))
                        : message.createReply(answer));
}

}  // namespace velorama::test
