#include "controls/browser/web_page.h"

#include "controls/browser/page_addresses.h"
#include "controls/browser/page_cost.h"

namespace velorama {

std::unique_ptr<PageDocument> makePage(const QString& text, PageKind kind, const QUrl& address,
                                       const QFont& font) {
    auto page = std::make_unique<PageDocument>();
    page->setUndoRedoEnabled(false);
    page->setDefaultFont(font);
    page->setDocumentMargin(12);
    const bool isRead = kind == PageKind::Html && isLight(text);
    if (isRead) {
        page->read(text);
    }
    if (isRead && isLight(*page)) {
        makeAbsolute(*page, address);
    } else {
        page->setPlainText(text);
    }
    return page;
}

QString errorPage(const QUrl& address, const QString& substitute) {
    const QString shown = address.toString(QUrl::RemoveUserInfo).toHtmlEscaped();
    const QString link = address.toString(QUrl::FullyEncoded).toHtmlEscaped();
    return QStringLiteral(
               "<h2>This page cannot be shown</h2><p>The server does not answer, or it has no such "
               "page.</p><p>%1</p><ul><li>Is this computer connected to the network?</li><li><a "
               "href=\"%2\">Try again</a> a little later.</li></ul>")
               .arg(shown, link) +
           substitute;
}

}  // namespace velorama
