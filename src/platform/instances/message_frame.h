#pragma once

#include <QByteArray>
#include <QString>

namespace velorama {

/// A text between two programs of one user: its length in bytes, 4 bytes, the highest first, then
/// the text in UTF-8.

/// Bytes of text in one frame at most.
constexpr quint32 longestMessage = 64 * 1024;
/// Bytes in front of the text.
constexpr qsizetype frameHead = 4;

/// Empty for a text that is too long.
QByteArray messageFrame(const QString& text);

struct ReadFrame {
    enum State {
        Incomplete,
        Whole,
        Refused,  // too long, or no UTF-8
    };
    State state = Incomplete;
    QString text;
};

/// Reads the frame at the start of `bytes`; what follows it counts for nothing.
ReadFrame readFrame(const QByteArray& bytes);

}  // namespace velorama
