#include "platform/web/http_reading.h"

namespace velorama {
namespace {

constexpr qint64 mostHead = 64LL * 1024;  // bytes

/// Just behind the empty line, or -1. Lines may lack the CR.
qsizetype endOfHead(const QByteArray& bytes, qsizetype from) {
    const qsizetype plain = bytes.indexOf("\n\n", from);
    const qsizetype full = bytes.indexOf("\n\r\n", from);
    if (full >= 0 && (plain < 0 || full < plain)) {
        return full + 3;
    }
    return plain < 0 ? -1 : plain + 2;
}

int statusOf(const QByteArray& head) {
    return head.left(head.indexOf('\n')).simplified().split(' ').value(1).toInt();
}

/// Comes before the answer, any number of times.
bool isInterim(int status) {
    return status >= 100 && status < 200;
}

bool hasNoBody(int status) {
    return status == 204 || status == 304;
}

}  // namespace

HttpReading::State HttpReading::take(const QByteArray& bytes) {
    qsizetype used = 0;
    while (state_ == State::More && !headRead_ && used < bytes.size()) {
        used += takeHeadBytes(bytes.mid(used));
    }
    if (state_ == State::More && headRead_) {
        takeBody(bytes.mid(used));
    }
    return state_;
}

HttpReading::State HttpReading::close() {
    if (state_ == State::More) {
        state_ = headRead_ && !length_ ? State::Whole : State::Broken;
    }
    return state_;
}

qsizetype HttpReading::takeHeadBytes(const QByteArray& bytes) {
    const qsizetype searched = qMax<qsizetype>(0, head_.size() - 2);
    const QByteArray part = bytes.left(mostHead - head_.size());
    head_ += part;
    qsizetype end = endOfHead(head_, searched);
    while (end >= 0 && isInterim(statusOf(head_))) {
        head_.remove(0, end);
        end = endOfHead(head_, 0);
    }
    if (end >= 0) {
        headRead_ = takeHead(head_.left(end));
    }
    if (!headRead_ && (end >= 0 || head_.size() >= mostHead)) {
        state_ = State::Broken;
    }
    // What stands behind the head is taken again, as body.
    return headRead_ ? part.size() - (head_.size() - end) : part.size();
}

bool HttpReading::takeHead(const QByteArray& head) {
    const QList<QByteArray> lines = head.split('\n');
    if (!lines.first().startsWith("HTTP/1.")) {
        return false;
    }
    status_ = statusOf(head);
    for (qsizetype line = lines.size() - 1; line > 0; --line) {
        const qsizetype colon = lines.at(line).indexOf(':');
        if (colon > 0) {
            headers_.insert(lines.at(line).left(colon).trimmed().toLower(),
                            lines.at(line).mid(colon + 1).trimmed());
        }
    }
    bool understood = true;
    if (hasNoBody(status_)) {
        length_ = 0;
    } else if (headers_.contains("content-length")) {
        length_ = header("content-length").toLongLong(&understood);
    }
    return understood && length_.value_or(0) >= 0 && !headers_.contains("transfer-encoding");
}

void HttpReading::takeBody(const QByteArray& bytes) {
    // One byte more than is wanted tells that there is more.
    body_ += bytes.left(qMax<qint64>(0, mostBytes_ + 1 - body_.size()));
    if (length_ && body_.size() > *length_) {
        body_.truncate(*length_);
    }
    cut_ = body_.size() > mostBytes_;
    if (cut_) {
        body_.truncate(mostBytes_);
    }
    if (cut_ || (length_ && body_.size() == *length_)) {
        state_ = State::Whole;
    }
}

}  // namespace velorama
