#include <QApplication>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <clocale>

namespace velorama::test {
void installMessageTrap();
void installButtonRelease();
}  // namespace velorama::test

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);

    // A clean world: a home, a configuration and a data folder of the run's own.
    QTemporaryDir home;
    qputenv("HOME", home.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", (home.path() + QStringLiteral("/config")).toUtf8());
    qputenv("XDG_DATA_HOME", (home.path() + QStringLiteral("/data")).toUtf8());
    qputenv("XDG_CACHE_HOME", (home.path() + QStringLiteral("/cache")).toUtf8());
    qputenv("XDG_RUNTIME_DIR", home.path().toUtf8());
    qputenv("LC_ALL", "C.UTF-8");
    // A screen of another size or scale is given by a file of the same platform.
    const bool isChosen = qgetenv("QT_QPA_PLATFORM").startsWith("offscreen:configfile=");
    if (!qEnvironmentVariableIsSet("VELORAMA_TEST_ON_DISPLAY") && !isChosen) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    qunsetenv("QT_STYLE_OVERRIDE");

    QApplication app(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    std::setlocale(LC_NUMERIC, "C");
    velorama::test::installMessageTrap();
    velorama::test::installButtonRelease();
    return RUN_ALL_TESTS();
}
