#pragma once

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QMap>

#include <gtest/gtest.h>

#include <algorithm>

namespace velorama::test {

inline QByteArray readFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
}

/// Every file below a folder by its path there, hidden ones too.
inline QMap<QString, QByteArray> filesBelow(const QString& folder) {
    QMap<QString, QByteArray> files;
    QDirIterator walk(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const QString path = walk.next();
        files[QDir(folder).relativeFilePath(path)] = readFile(path);
    }
    return files;
}

/// Fails with the names and first bytes of files that differ, and no more.
inline void expectSameFiles(const QMap<QString, QByteArray>& found,
                            const QMap<QString, QByteArray>& wanted) {
    EXPECT_EQ(QStringList(found.keys()).join(u'\n').toStdString(),
              QStringList(wanted.keys()).join(u'\n').toStdString());
    for (auto one = wanted.begin(); one != wanted.end(); ++one) {
        const QByteArray is = found.value(one.key());
        const auto differ =
            std::mismatch(is.begin(), is.end(), one.value().begin(), one.value().end());
        const qsizetype at = differ.first - is.begin();
        EXPECT_TRUE(is == one.value()) << one.key().toStdString() << " from byte " << at << ":\n"
                                       << is.mid(at, 100).toStdString() << "\n"
                                       << one.value().mid(at, 100).toStdString();
    }
}

}  // namespace velorama::test
