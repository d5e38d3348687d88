#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace velorama::test {

/// Empty for a file that is not there.
inline QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// In the place of what was there; makes the folders above it too.
inline void writeFile(const QString& path, const QByteArray& bytes = {}) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    ASSERT_EQ(file.write(bytes), bytes.size()) << path.toStdString();
}

}  // namespace velorama::test
