#include "controls/pages/web_page.h"

#include "platform/web/http_request.h"

#include <QBuffer>
#include <QImageReader>
#include <QRegularExpression>
#include <QStringDecoder>
#include <QTextBlock>
#include <QTextCursor>

#include <functional>
#include <optional>

namespace velorama {
namespace {

constexpr int mostPictures = 24;
constexpr int longestSide = 8192;  // pixels
constexpr int largestPicture = 4;  // million pixels, which are 16 MB
// The time of laying out tables doubles with each one that stands in another.
constexpr int deepestTable = 6;
// It grows with the square of open tags and with the cells of a table, the spanned ones included.
constexpr int mostTags = 1500;
constexpr qint64 mostCells = 50000;

struct Piece {
    int start;
    int end;
    QTextCharFormat format;
};

std::vector<Piece> piecesOf(const QTextDocument& page) {
    std::vector<Piece> pieces;
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
        for (auto at = block.begin(); !at.atEnd(); ++at) {
            const QTextFragment piece = at.fragment();
            pieces.push_back(
                {piece.position(), piece.position() + piece.length(), piece.charFormat()});
        }
    }
    return pieces;
}

bool isShownLink(const QUrl& link) {
    return isHttpAddress(link) || link.scheme() == QLatin1String("mailto");
}

/// The format with full addresses. Told apart: a link (mailto too) and a picture (of the page's own
/// server only).
QTextCharFormat absolute(const QTextCharFormat& from, const QUrl& address) {
    QTextCharFormat format = from;
    if (format.isAnchor() && !format.anchorHref().isEmpty()) {
        const QUrl link = address.resolved(QUrl(format.anchorHref().trimmed()));
        if (isShownLink(link)) {
            format.setAnchorHref(link.toString(QUrl::FullyEncoded));
        } else {
            format.clearProperty(QTextFormat::AnchorHref);
            format.clearForeground();
            format.setFontUnderline(false);
            format.setAnchor(!format.anchorNames().isEmpty());
        }
    }
    if (format.isImageFormat()) {
        const QUrl picture = address.resolved(QUrl(format.toImageFormat().name()));
        const bool own = isHttpAddress(picture) && isSameServer(picture, address);
        format.setProperty(QTextFormat::ImageName,
                           own ? picture.toString(QUrl::FullyEncoded) : QString());
    }
    return format;
}

void makeAbsolute(QTextDocument& page, const QUrl& address) {
    QTextCursor cursor(&page);
    cursor.beginEditBlock();
    for (const Piece& piece : piecesOf(page)) {
        if (piece.format.isAnchor() || piece.format.isImageFormat()) {
            cursor.setPosition(piece.start);
            cursor.setPosition(piece.end, QTextCursor::KeepAnchor);
            cursor.setCharFormat(absolute(piece.format, address));
        }
    }
    cursor.endEditBlock();
}

int tableDepth(const QString& html) {
    static const QRegularExpression tag(QStringLiteral("<(/?)table\\b"),
                                        QRegularExpression::CaseInsensitiveOption);
    int depth = 0;
    int deepest = 0;
    for (auto match = tag.globalMatch(html); match.hasNext();) {
        depth = match.next().captured(1).isEmpty() ? depth + 1 : qMax(0, depth - 1);
        deepest = qMax(deepest, depth);
    }
    return deepest;
}

QRegularExpression anyCase(const QString& pattern) {
    return QRegularExpression(pattern, QRegularExpression::CaseInsensitiveOption);
}

/// More cells than the tables can have; nothing where a span may be larger than it looks.
std::optional<qint64> cellBound(const QString& html) {
    static const auto span = anyCase(QStringLiteral("(?:col|row)span"));
    static const auto small =
        anyCase(QStringLiteral("(?:col|row)span\\s*=\\s*[\"']?(\\d{1,2})(?!\\d)"));
    // A letter or a digit that is written as its number.
    static const auto masked =
        anyCase(QStringLiteral("&#(?:0*(?:4[89]|5[0-7]|6[5-9]|[78]\\d|90|9[789]|1[01]\\d|12[0-2])|"
                               "x0*(?:3\\d|[46][1-9a-f]|[57][0-9a]))(?![0-9a-f])"));
    static const auto row = anyCase(QStringLiteral("<tr\\b"));
    static const auto cell = anyCase(QStringLiteral("<t[dh]\\b"));
    qint64 spanned = 1;
    qsizetype known = 0;
    for (auto match = small.globalMatch(html); match.hasNext(); ++known) {
        spanned += match.next().captured(1).toInt();
    }
    if (html.count(span) != known || html.contains(masked)) {
        return std::nullopt;
    }
    return (html.count(row) + spanned) * (html.count(cell) + spanned);
}

/// Whether the page is laid out in a moment, whatever it is made of.
bool isLight(const QString& html) {
    if (html.count(u'<') > mostTags || tableDepth(html) > deepestTable) {
        return false;
    }
    return cellBound(html).value_or(mostCells + 1) <= mostCells;
}

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

std::unique_ptr<PageDocument> makePage(const QString& text, PageKind kind, const QUrl& address,
                                       const QFont& font) {
    auto page = std::make_unique<PageDocument>();
    page->setUndoRedoEnabled(false);
    page->setDefaultFont(font);
    page->setDocumentMargin(12);
    if (kind == PageKind::Html && isLight(text)) {
        page->read(text);
        makeAbsolute(*page, address);
    } else {
        page->setPlainText(text);
    }
    return page;
}

QString errorPage(const QUrl& address) {
    const QString shown = address.toString(QUrl::RemoveUserInfo).toHtmlEscaped();
    const QString link = address.toString(QUrl::FullyEncoded).toHtmlEscaped();
    return QStringLiteral(
               "<h2>This page cannot be shown</h2><p>The server does not answer, or it has no such "
               "page.</p><p>%1</p><ul><li>Is this computer connected to the network?</li><li><a "
               "href=\"%2\">Try again</a> a little later.</li></ul>")
        .arg(shown, link);
}

QList<QUrl> picturesOf(const QTextDocument& page) {
    QList<QUrl> pictures;
    for (const Piece& piece : piecesOf(page)) {
        const QUrl picture(piece.format.isImageFormat() ? piece.format.toImageFormat().name()
                                                        : QString());
        if (!picture.isEmpty() && !pictures.contains(picture) && pictures.size() < mostPictures) {
            pictures.append(picture);
        }
    }
    return pictures;
}

// Formats that draw by a program of their own could lead to files of this machine.
QImage pagePicture(const QByteArray& file) {
    QByteArray bytes = file;
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    const QByteArray format = reader.format();
    const QSize size = reader.size();
    const bool known = format == "gif" || format == "jpeg" || format == "png" || format == "bmp";
    const qint64 pixels = qint64(size.width()) * size.height();
    if (!known || !size.isValid() || qMax(size.width(), size.height()) > longestSide ||
        pixels > qint64(largestPicture) * 1000 * 1000) {
        return {};
    }
    return reader.read();
}

}  // namespace velorama
