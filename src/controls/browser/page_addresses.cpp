#include "controls/browser/page_addresses.h"

#include "platform/web/http_request.h"

#include <QTextBlock>
#include <QTextCursor>

namespace velorama {
namespace {

constexpr int mostPictures = 24;

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

/// The toolkit follows an address that stands in a format even where that is marked as no anchor,
/// as inside a link the text behind another anchor's first letter is.
bool isLink(const QTextCharFormat& format) {
    return !format.anchorHref().isEmpty();
}

/// The format with full addresses. Told apart: a link (mailto too) and a picture (of the page's own
/// server only).
QTextCharFormat absolute(const QTextCharFormat& from, const QUrl& address) {
    QTextCharFormat format = from;
    if (isLink(format)) {
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

}  // namespace

void makeAbsolute(QTextDocument& page, const QUrl& address) {
    QTextCursor cursor(&page);
    cursor.beginEditBlock();
    for (const Piece& piece : piecesOf(page)) {
        if (isLink(piece.format) || piece.format.isImageFormat()) {
            cursor.setPosition(piece.start);
            cursor.setPosition(piece.end, QTextCursor::KeepAnchor);
            cursor.setCharFormat(absolute(piece.format, address));
        }
    }
    cursor.endEditBlock();
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

}  // namespace velorama
