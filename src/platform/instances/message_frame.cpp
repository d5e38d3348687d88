#include "platform/instances/message_frame.h"

#include <QStringDecoder>
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
    // A byte order mark at the start is a letter of the text here.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless |
                                                     QStringDecoder::Flag::ConvertInitialBom);
    const QString text = decoder(bytes.mid(frameHead, length));
    return decoder.hasError() ? ReadFrame{ReadFrame::Refused, {}}
                              : ReadFrame{ReadFrame::Whole, text};
}

}  // namespace velorama
