#include "player/player_world.h"

#include "core/globals.h"
#include "core/lib_txt.h"
#include "support/test_world.h"

#include <QCoreApplication>
#include <QFile>
#include <QGuiApplication>

namespace velorama::test {

std::optional<RegistryValue> WatchedStore::value(Hive hive, const QString& key,
                                                 const QString& name) const {
    if (key.contains(QStringLiteral("frmSLIDESHOW\\Selection"), Qt::CaseInsensitive)) {
        ++slideReads;
        if (onSlideRead) {
            onSlideRead(slideReads);
        }
    }
    return MemoryRegistryStore::value(hive, key, name);
}

AtYield::AtYield(int yield, std::function<void()> action) {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this, yield, action = std::move(action)] {
        if (++yields_ == yield) {
            action();
        }
    });
    timer_.start(0);
}

AtYield::AtYield(std::function<void()> action) {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this, action = std::move(action)] {
        ++yields_;
        action();
    });
    timer_.start(0);
}

PlayerTest::PlayerTest() : folder(temporaryFolder()) {
    fillTextConstants(2024, QStringLiteral("http://velorama.invalid/"));
    makeServices(store, shell);
    SystemVersion = QStringLiteral("6.1");
    saveSetting(QStringLiteral("\\frmCONFIG\\Items"), QStringLiteral("INTERVAL"),
                QStringLiteral("3600"));
    saveSetting(QStringLiteral("\\frmCONFIG\\Items"), QStringLiteral("TRANSITION"),
                QStringLiteral("3600000"));
}

PlayerTest::~PlayerTest() {
    endShow();
    releaseServices();
}

QString PlayerTest::picture(const QString& name, const QColor& colour, QSize size) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    QString path = missing(name);
    EXPECT_TRUE(image.save(path, "BMP"));
    return path;
}

QString PlayerTest::unreadable(const QString& name) {
    QFile file(missing(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("this is a letter and no picture");
    return file.fileName();
}

QString PlayerTest::missing(const QString& name) const {
    return folder + QLatin1Char('/') + name;
}

void PlayerTest::setSlides(const QStringList& paths) {
    saveSetting(QStringLiteral("\\frmSLIDESHOW\\Items"), QStringLiteral("Items"),
                QString::number(paths.size()));
    for (qsizetype i = 0; i < paths.size(); ++i) {
        saveSetting(QStringLiteral("\\frmSLIDESHOW\\Selection"), QString::number(i + 1),
                    paths.at(i));
    }
}

QColor PlayerTest::slideColour(int number) {
    return QColor::fromHsv(number * 67 % 360, 255 - number * 20, 230);
}

QStringList PlayerTest::makeSlides(int count) {
    QStringList paths;
    for (int i = 1; i <= count; ++i) {
        const QString name = QString(QChar(u'a' + i - 1)) + QStringLiteral(".bmp");
        paths.append(picture(name, slideColour(i)));
    }
    setSlides(paths);
    return paths;
}

frmSLIDESHOW& PlayerTest::open() {
    form = new frmSLIDESHOW(host, screenSaver);
    form->load(QGuiApplication::primaryScreen());
    return *form;
}

frmSLIDESHOW& PlayerTest::openFaded() {
    frmSLIDESHOW& show = open();
    fadeSteps(show, 240);
    return show;
}

void PlayerTest::fadeSteps(frmSLIDESHOW& show, int steps) {
    for (int i = 0; i < steps; ++i) {
        show.tmrFADETRANS_Timer();
    }
}

void PlayerTest::endShow() {
    if (form) {
        form->Unload();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(form.isNull()) << "a show that was unloaded is still there";
    delete form.data();
}

QRgb middle(const QImage& image) {
    return image.pixel(image.width() / 2, image.height() / 2);
}

}  // namespace velorama::test
