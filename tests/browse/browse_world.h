#pragma once

#include "browse/thumbnails.h"
#include "core/globals.h"
#include "core/lib_txt.h"
#include "support/memory_registry_store.h"
#include "support/recording_shell.h"
#include "support/test_world.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

namespace velorama::test {

/// The services over a store in memory, made before and released after each test.
class WithServices : public testing::Test {
protected:
    WithServices() {
        fillTextConstants(2026, QStringLiteral("http://velorama.invalid/"));
        makeServices(store, shell);
        FormLoading = false;
        ActiveList.clear();
    }
    ~WithServices() override { releaseServices(); }

    MemoryRegistryStore store;
    RecordingShell shell;
};

inline QImage plainImage(QSize size, QColor colour = Qt::red) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

/// Saves a picture in the format of its name; the full path.
inline QString savePicture(const QString& folder, const QString& name, QSize size = QSize(4, 3),
                           QColor colour = Qt::red) {
    const QString path = QDir(folder).filePath(name);
    const bool isJpeg = name.endsWith(QLatin1String("jpg"), Qt::CaseInsensitive);
    EXPECT_TRUE(plainImage(size, colour).save(path, isJpeg ? "JPG" : "BMP")) << path.toStdString();
    return path;
}

inline void saveBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

/// Runs `action` at the next place where events are let run.
inline void atNextYield(std::function<void()> action) {
    QTimer::singleShot(0, qApp, std::move(action));
}

}  // namespace velorama::test
