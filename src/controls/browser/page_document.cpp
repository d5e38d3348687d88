#include "controls/browser/page_document.h"

namespace velorama {

QImage noPicture() {
    QImage empty(1, 1, QImage::Format_ARGB32);
    empty.fill(Qt::transparent);
    return empty;
}

void PageDocument::read(const QString& html) {
    reading_ = true;
    setHtml(html);
    reading_ = false;
}

// While the text is read, what is asked for are style sheets and the pictures of backgrounds. One
// that is blank would cover the colour that is given as well.
QVariant PageDocument::loadResource(int type, const QUrl&) {
    return type == ImageResource && !reading_ ? QVariant(noPicture()) : QVariant(QString());
}

}  // namespace velorama
