#include "application.h"
#include "controls/browser/page_addresses.h"
#include "controls/browser/web_page.h"
#include "entry.h"
#include "platform/web/http_request.h"

#include <QTextBlock>

using namespace velorama;

namespace {

const QUrl address(QStringLiteral("http://help.invalid/pages/start.html"));

bool mayBeFollowed(const QTextCharFormat& format) {
    const QUrl link(format.anchorHref());
    return format.anchorHref().isEmpty() || isHttpAddress(link) ||
           link.scheme() == QLatin1String("mailto");
}

void checkLinks(const QTextDocument& page) {
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
        for (auto at = block.begin(); !at.atEnd(); ++at) {
            fuzz::require(mayBeFollowed(at.fragment().charFormat()));
        }
    }
}

}  // namespace

// A page as it comes from the server, laid out. The first byte chooses what the server says of it.
// Links lead to the web or the mail program only, pictures to the page's own server.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const QByteArray types[] = {"text/html; charset=utf-8", "", "text/plain",
                                       "text/html; charset=utf-16", "text/html; charset=shift_jis"};
    if (size == 0) {
        return 0;
    }
    const QByteArray& type = types[data[0] % std::size(types)];
    const QString text = pageText(fuzz::asBytes(data + 1, size - 1), type);
    const auto page = makePage(text, pageKind(type), address, QApplication::font());
    for (const QUrl& picture : picturesOf(*page)) {
        fuzz::require(isHttpAddress(picture) && isSameServer(picture, address));
    }
    checkLinks(*page);
    page->setTextWidth(480);
    page->size();
    return 0;
}
