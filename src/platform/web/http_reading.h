#pragma once

#include <QByteArray>
#include <QHash>

#include <optional>

namespace velorama {

/// A server's answer as its bytes arrive, in pieces of any size. Knows no connection.
class HttpReading {
public:
    enum class State {
        More,
        Whole,
        Broken,  // no HTTP, or an answer that broke off
    };

    /// A body is taken no further than `mostBytes`.
    explicit HttpReading(qint64 mostBytes) : mostBytes_(mostBytes) {}

    /// The next bytes. What comes after the end of the answer counts for nothing.
    State take(const QByteArray& bytes);
    /// No more bytes come: the end of a body whose length nobody told.
    State close();

    int status() const { return status_; }
    /// Of the first header of that name, which is given in small letters.
    QByteArray header(const QByteArray& name) const { return headers_.value(name); }
    const QByteArray& body() const { return body_; }
    /// The body had more bytes than were to be taken.
    bool isCut() const { return cut_; }

private:
    /// The bytes of it that may have been the head's.
    qsizetype takeHeadBytes(const QByteArray& bytes);
    bool takeHead(const QByteArray& head);
    void takeBody(const QByteArray& bytes);

    qint64 mostBytes_;
    State state_ = State::More;
    QByteArray head_;
    bool headRead_ = false;
    int status_ = 0;
    QHash<QByteArray, QByteArray> headers_;
    /// As the server tells it; without it the end of the connection is the end of the body.
    std::optional<qint64> length_;
    QByteArray body_;
    bool cut_ = false;
};

}  // namespace velorama
