#include "controls/boxes/label.h"

#include "controls/geometry/caption_room.h"
#include "controls/input/keys.h"

#include <QMouseEvent>
#include <QPainter>
#include <QTextDocument>

namespace velorama {
namespace {

// A tooltip of more than this is larger than the screen.
constexpr qsizetype longestTooltip = 2000;

/// A tooltip that shows the text as it is: a file name or a server's answer may look like markup.
QString plainTooltip(const QString& text) {
    const QString start = text.left(longestTooltip);
    return Qt::mightBeRichText(start) ? Qt::convertFromPlainText(start) : start;
}

}  // namespace

void Label::setCaption(const QString& caption) {
    if (caption == caption_) {
        return;
    }
    caption_ = caption;
    setAccessibleName(caption);
    update();
}

QString Label::cut(const QString& line) const {
    const QFontMetrics metrics(fontForHeight(font(), height()), this);
    return metrics.elidedText(line, Qt::ElideMiddle, width());
}

bool Label::fits(const QString& caption) const {
    return cut(caption) == caption;
}

void Label::setAlignment(Qt::Alignment alignment) {
    alignment_ = alignment | Qt::AlignVCenter;
    update();
}

void Label::setForeColor(const QColor& colour) {
    foreColor_ = colour;
    update();
}

void Label::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    // A file name may hold a line break; one line is all there is.
    QString line = caption_;
    line.replace(QLatin1Char('\n'), QLatin1Char(' '));
    painter.setFont(fontForHeight(font(), height()));
    const QString shown = cut(line);
    setToolTip(shown == line ? QString() : plainTooltip(caption_));
    painter.setPen(foreColor_.isValid() ? foreColor_ : palette().color(foregroundRole()));
    painter.drawText(rect(), static_cast<int>(alignment_ | Qt::TextSingleLine), shown);
}

void Label::mousePressEvent(QMouseEvent* event) {
    event->accept();
}

void Label::mouseReleaseEvent(QMouseEvent* event) {
    emit MouseUp(mouseButton(event->button()));
}

}  // namespace velorama
