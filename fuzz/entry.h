#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdlib>

namespace velorama::fuzz {

/// Ends the entry as a crash does where what must hold does not.
inline void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

inline QByteArray asBytes(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)};
}

/// A folder of the process's own, for readers that take a path.
class Folder {
public:
    QString write(const QString& name, const QByteArray& bytes) const {
        const QString path = folder_.filePath(name);
        QFile file(path);
        require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        return path;
    }
    QDir folder() const { return QDir(folder_.path()); }
    void clear() const {
        for (const QString& name : folder().entryList(QDir::Files | QDir::Hidden)) {
            QFile::remove(folder_.filePath(name));
        }
    }

private:
    QTemporaryDir folder_;
};

}  // namespace velorama::fuzz
