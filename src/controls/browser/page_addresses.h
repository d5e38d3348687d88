#pragma once

#include <QList>
#include <QUrl>

class QTextDocument;

namespace velorama {

/// Gives links and pictures of a page their full addresses. A picture that is not to be fetched
/// gets none: one of another server, of this machine, or in the page itself; and a link that leads
/// nowhere here becomes plain text.
void makeAbsolute(QTextDocument& page, const QUrl& address);
/// Addresses of the page's pictures after that, each once.
QList<QUrl> picturesOf(const QTextDocument& page);

}  // namespace velorama
