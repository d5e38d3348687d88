#include "pictures.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QImage>

#include <algorithm>
#include <atomic>
#include <functional>
#include <random>
#include <thread>
#include <vector>

#include <unistd.h>

namespace velorama::bench {
namespace {

constexpr int cameraPictures = 40;
constexpr QSize cameraSize(6000, 4000);
constexpr int albumPictures = 50;
constexpr int manyPictures = 500;
constexpr QSize albumSize(2592, 1728);

/// Runs `job` for 0 to count - 1 on all processors.
void forAll(int count, const std::function<void(int)>& job) {
    std::atomic<int> next = 0;
    std::vector<std::jthread> threads;
    for (unsigned i = 0; i < std::max(1U, std::thread::hardware_concurrency()); ++i) {
        threads.emplace_back([&] {
            for (int number = next++; number < count; number = next++) {
                job(number);
            }
        });
    }
}

/// Makes the pictures that are missing in a folder. A run that was stopped has left no half ones:
/// each is written under another name first.
QString filled(const QString& name, const QString& ending, int count,
               const std::function<bool(int, const QString&)>& make) {
    QString folder = dataFolder(name);
    forAll(count, [&](int number) {
        const QString path =
            QStringLiteral("%1/%2.%3").arg(folder).arg(number, 5, 10, QLatin1Char('0')).arg(ending);
        const QString unfinished = path + QStringLiteral("~");
        if (!QFile::exists(path) && make(number, unfinished)) {
            QFile::rename(unfinished, path);
        }
    });
    return folder;
}

QImage noise(QSize size, std::minstd_rand& random) {
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        std::generate(line, line + size.width(),
                      [&] { return 0xff000000U | (random() & 0xffffffU); });
    }
    return image;
}

/// Adds `layer`, stretched and centred around no change, to `target`: strength in 256ths.
void addLayer(QImage& target, const QImage& layer, int strength) {
    const QImage wide =
        layer.scaled(target.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    for (int y = 0; y < target.height(); ++y) {
        uchar* to = target.scanLine(y);
        const uchar* from = wide.constScanLine(y);
        for (int i = 0; i < target.width() * 4; ++i) {
            to[i] =
                static_cast<uchar>(std::clamp(to[i] + (from[i] - 128) * strength / 256, 0, 255));
        }
    }
}

/// Noise of several scales over one another: broad areas, shapes, texture, grain. Encoded, it has
/// about as many bytes as a photograph of the size.
QImage photographLike(QSize size, unsigned seed) {
    std::minstd_rand random(seed + 1);
    QImage image(size, QImage::Format_RGB32);
    image.fill(QColor(128, 128, 128));
    const struct {
        int divisor;
        int strength;
    } layers[] = {{1000, 220}, {160, 110}, {24, 60}, {6, 44}, {2, 40}, {1, 8}};
    for (const auto& layer : layers) {
        addLayer(image, noise(size / layer.divisor + QSize(2, 2), random), layer.strength);
    }
    return image;
}

/// The picture moved round by a different distance for each number, and its colours changed places.
QImage variant(const QImage& base, int number) {
    QImage image(base.size(), base.format());
    const int shift = number * 149 % base.width();
    for (int y = 0; y < base.height(); ++y) {
        const auto* from =
            reinterpret_cast<const QRgb*>(base.constScanLine((y + number * 97) % base.height()));
        auto* to = reinterpret_cast<QRgb*>(image.scanLine(y));
        std::rotate_copy(from, from + shift, from + base.width(), to);
    }
    return number % 2 == 0 ? image : image.rgbSwapped();
}

/// One more name for a file: it takes no room, and is read from the same cache.
bool hasLink(const QString& file, const QString& name) {
    return ::link(QFile::encodeName(file).constData(), QFile::encodeName(name).constData()) == 0;
}

QStringList wallpapers() {
    QStringList paths;
    QDirIterator entries(QStringLiteral("/usr/share/wallpapers"), {QStringLiteral("*.jpg")},
                         QDir::Files, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString path = entries.next();
        if (path.contains(QLatin1String("/contents/images"))) {
            paths.append(path);
        }
    }
    paths.sort();
    return paths;
}

}  // namespace

QString dataFolder(const QString& name) {
    QString folder = QCoreApplication::applicationDirPath() + QStringLiteral("/bench-data/") + name;
    QDir().mkpath(folder);
    return folder;
}

QStringList filesOf(const QString& folder) {
    QStringList paths;
    for (const QString& name : QDir(folder).entryList(QDir::Files, QDir::Name)) {
        paths.append(folder + QLatin1Char('/') + name);
    }
    return paths;
}

QString wallpaperFolder() {
    const QStringList paths = wallpapers();
    if (paths.isEmpty()) {
        return {};
    }
    return filled(
        QStringLiteral("wallpapers"), QStringLiteral("jpg"), static_cast<int>(paths.size()),
        [&](int number, const QString& path) { return QFile::copy(paths[number], path); });
}

QString cameraFolder() {
    QImage base;
    if (filesOf(dataFolder(QStringLiteral("camera"))).size() < cameraPictures) {
        base = photographLike(cameraSize, 0);
    }
    return filled(QStringLiteral("camera"), QStringLiteral("jpg"), cameraPictures,
                  [&](int number, const QString& path) {
                      return variant(base, number).save(path, "JPEG", 90);
                  });
}

QString smallFolder(int count) {
    return filled(
        QStringLiteral("small"), QStringLiteral("jpg"), count, [](int number, const QString& path) {
            return photographLike({320, 240}, static_cast<unsigned>(number)).save(path, "JPEG", 90);
        });
}

QString mediumFolder(int count) {
    const QString name = QStringLiteral("medium-%1").arg(count);
    const QImage base = photographLike({1600, 1200}, 1);
    return filled(name, QStringLiteral("jpg"), count, [&](int number, const QString& path) {
        return variant(base, number).save(path, "JPEG", 90);
    });
}

QString albumFolder(int count) {
    QImage base;
    if (filesOf(dataFolder(QStringLiteral("album"))).size() < albumPictures) {
        base = photographLike(albumSize, 2);
    }
    const QStringList files =
        filesOf(filled(QStringLiteral("album"), QStringLiteral("jpg"), albumPictures,
                       [&](int number, const QString& path) {
                           return variant(base, number).save(path, "JPEG", 90);
                       }));
    return filled(QStringLiteral("album-%1").arg(count), QStringLiteral("jpg"), count,
                  [&](int number, const QString& path) {
                      return hasLink(files.value(number % albumPictures), path);
                  });
}

QString manyFolder(int count) {
    const QStringList files = filesOf(filled(
        QStringLiteral("many"), QStringLiteral("jpg"), manyPictures,
        [](int number, const QString& path) {
            return photographLike({160, 120}, static_cast<unsigned>(number)).save(path, "JPEG", 80);
        }));
    return filled(QStringLiteral("many-%1").arg(count), QStringLiteral("jpg"), count,
                  [&](int number, const QString& path) {
                      return hasLink(files.value(number % manyPictures), path);
                  });
}

QString bmpFolder() {
    return filled(QStringLiteral("bmp"), QStringLiteral("bmp"), 1, [](int, const QString& path) {
        std::minstd_rand random(3);
        return noise({4000, 3000}, random).convertToFormat(QImage::Format_RGB888).save(path, "BMP");
    });
}

QString tinyFolder(int count) {
    const QString name = QStringLiteral("tiny-%1").arg(count);
    return filled(name, QStringLiteral("bmp"), count, [](int number, const QString& path) {
        std::minstd_rand random(static_cast<unsigned>(number) + 1);
        return noise({4, 4}, random).save(path, "BMP");
    });
}

QString plainFolder(int count) {
    const QString name = QStringLiteral("plain-%1").arg(count);
    return filled(name, QStringLiteral("bmp"), count, [](int number, const QString& path) {
        QImage picture(2, 2, QImage::Format_RGB32);
        picture.fill(static_cast<QRgb>(number) * 2654435761U);
        return picture.save(path, "BMP");
    });
}

}  // namespace velorama::bench
