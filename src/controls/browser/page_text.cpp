#include "controls/browser/page_text.h"

#include <QRegularExpression>
#include <QStringDecoder>

namespace velorama {
namespace {

QByteArray charsetOf(const QByteArray& contentType) {
    static const QRegularExpression charset(QStringLiteral("charset\\s*=\\s*[\"']?([\\w.:-]+)"),
                                            QRegularExpression::CaseInsensitiveOption);
    return charset.match(QString::fromLatin1(contentType)).captured(1).toLatin1();
}

QStringDecoder decoderOf(const QByteArray& body, const QByteArray& contentType) {
    // A letter that the end of the page cuts off is an error like any other.
    constexpr auto whole = QStringConverter::Flag::Stateless;
    if (const auto mark = QStringConverter::encodingForData(body)) {
        return QStringDecoder(*mark, whole);
    }
    const QByteArray named = charsetOf(contentType);
    QStringDecoder decoder(named.constData(), whole);
    return decoder.isValid()
               ? std::move(decoder)
               : QStringDecoder(
                     QStringConverter::encodingForHtml(body).value_or(QStringConverter::Utf8),
                     whole);
}

}  // namespace

QString pageText(const QByteArray& body, const QByteArray& contentType) {
    QStringDecoder decoder = decoderOf(body, contentType);
    const QString text = decoder(body);
    return decoder.hasError() ? QString::fromLatin1(body) : text;
}

PageKind pageKind(const QByteArray& contentType) {
    const QByteArray type = contentType.split(';').first().trimmed().toLower();
    if (type.isEmpty() || type == "text/html" || type == "application/xhtml+xml") {
        return PageKind::Html;
    }
    return type == "text/plain" ? PageKind::PlainText : PageKind::Foreign;
}

}  // namespace velorama
