#include "platform/instances/message_frame.h"

#include "platform/utf8.h"

#include <QtEndian>

namespace velorama {

QByteArray messageFrame(const QString& text) {
    const QByteArray bytes = text.toUtf8();
    if (bytes.size() > qsizetype(longestMessage)) {
        return QByteArray();
    }
    QByteArray frame(frameHead, 0);
    qToBigEndian(static_cast<quint32>(bytes.size()), frame.data());
    return frame + bytes;
}

ReadFrame readFrame(const QByteArray& bytes) {
    if (bytes.size() < frameHead) {
        return {};
    }
    const auto length = qFromBigEndian<quint32>(bytes.constData());
    if (length > longestMessage) {
        return {ReadFrame::Refused, {}};
    }
    if (bytes.size() - frameHead < qsizetype(length)) {
        return {};
    }
    const std::optional<QString> text = textOfValidUtf8(bytes.mid(frameHead, length));
    return text ? ReadFrame{ReadFrame::Whole, *text} : ReadFrame{ReadFrame::Refused, {}};
}

}  // namespace velorama
