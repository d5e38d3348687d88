#pragma once

#include "controls/pages/page_document.h"

#include <QUrl>

#include <memory>

namespace velorama {

/// The text of a page: by its mark, by what the server says, by what the page itself says, and in
/// UTF-8 where nobody says anything.
QString pageText(const QByteArray& body, const QByteArray& contentType);

enum class PageKind { Html, PlainText, Foreign };
/// What can be shown here. A page of no stated type is taken for HTML.
PageKind pageKind(const QByteArray& contentType);

/// The page as a document. Links and pictures in it have full addresses; a picture that is not to
/// be fetched has none: one of another server, of this machine, or in the page itself, and a link
/// that leads nowhere here is plain text. A page of so many tags or table cells that it would take
/// long to lay out is shown as it is written.
std::unique_ptr<PageDocument> makePage(const QString& text, PageKind kind, const QUrl& address,
                                       const QFont& font);
/// What is shown where a page cannot be had, with a link that tries again.
QString errorPage(const QUrl& address);

/// Addresses of the document's pictures, each once.
QList<QUrl> picturesOf(const QTextDocument& page);
/// A GIF, JPEG, PNG or BMP file; null for anything else and for a picture too large to be one of a
/// page.
QImage pagePicture(const QByteArray& file);

}  // namespace velorama
