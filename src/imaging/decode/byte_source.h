#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QFile>

namespace velorama {

/// The bytes of a picture file, read where they lie. A reader of heads that is given some never
/// asks whether they are in memory or in a file.
class ByteSource {
public:
    virtual ~ByteSource() = default;

    /// Of all bytes.
    virtual qint64 size() const = 0;
    /// Bytes from `at` on, not all of them perhaps, but 256 at least where there are as many. Empty
    /// beyond the end and where reading fails. They stay until the next call.
    virtual QByteArrayView from(qint64 at) = 0;
};

class MemoryBytes : public ByteSource {
public:
    explicit MemoryBytes(QByteArrayView bytes) : bytes_(bytes) {}

    qint64 size() const override { return bytes_.size(); }
    QByteArrayView from(qint64 at) override {
        return at < bytes_.size() ? bytes_.sliced(at) : QByteArrayView();
    }

private:
    QByteArrayView bytes_;
};

/// An ordinary file of the host, read in blocks.
class FileBytes : public ByteSource {
public:
    explicit FileBytes(const QString& path) : file_(path) {
        if (file_.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
            size_ = file_.size();
        }
    }

    qint64 size() const override { return size_; }
    QByteArrayView from(qint64 at) override {
        constexpr qint64 blockSize = 16LL * 1024;
        block_ = at < size_ && file_.seek(at) ? file_.read(blockSize) : QByteArray();
        return block_;
    }

private:
    QFile file_;
    qint64 size_ = 0;
    QByteArray block_;
};

/// A file inside another one, from `start` to the end.
class InnerBytes : public ByteSource {
public:
    InnerBytes(ByteSource& outer, qint64 start) : outer_(outer), start_(start) {}

    qint64 size() const override { return qMax<qint64>(outer_.size() - start_, 0); }
    QByteArrayView from(qint64 at) override { return outer_.from(start_ + at); }

private:
    ByteSource& outer_;
    const qint64 start_;
};

}  // namespace velorama
