#include "platform/utf8.h"

#include <QStringDecoder>

namespace velorama {
namespace {

QStringDecoder wholeDecoder() {
    return QStringDecoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless |
                                                    QStringDecoder::Flag::ConvertInitialBom);
}

}  // namespace

QString textOfUtf8(QByteArrayView bytes) {
    return wholeDecoder()(bytes);
}

std::optional<QString> textOfValidUtf8(QByteArrayView bytes) {
    QStringDecoder decoder = wholeDecoder();
    const QString text = decoder(bytes);
    return decoder.hasError() ? std::nullopt : std::optional(text);
}

}  // namespace velorama
