#pragma once

#include <QByteArray>
#include <QString>

namespace velorama {

/// The text of a page: by its mark, by what the server says, by what the page itself says, and in
/// UTF-8 where nobody says anything.
QString pageText(const QByteArray& body, const QByteArray& contentType);

enum class PageKind { Html, PlainText, Foreign };
/// What can be shown here. A page of no stated type is taken for HTML.
PageKind pageKind(const QByteArray& contentType);

}  // namespace velorama
