#include "controls/geometry/tip_markup.h"

#include <QFontMetricsF>
#include <QTextLayout>

namespace velorama {
namespace {

// Characters kept of either end of a text, and of an ordinary line.
constexpr qsizetype shownEnd = 400;
constexpr int lineLength = 60;

/// In one line, and short enough for a screen. Nothing in it is a command to the layout.
QString plain(const QString& text) {
    QString shown = text.size() <= 2 * shownEnd
                        ? text
                        : QString(text.first(shownEnd) + QChar(0x2026) + text.last(shownEnd));
    for (QChar& c : shown) {
        const bool breaks = c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
                            c == QChar::ParagraphSeparator;
        c = breaks ? QChar(u' ') : c;
    }
    return shown;
}

/// Breaks also where there is no blank: a path often has none.
QStringList broken(const QString& text, const QFont& font) {
    QTextLayout layout(text, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    QStringList pieces;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(QFontMetricsF(font).averageCharWidth() * lineLength);
        pieces.append(text.mid(line.textStart(), line.textLength()));
    }
    layout.endLayout();
    return pieces;
}

}  // namespace

// A paragraph for each line: what turns the direction of writing ends with it.
QString tipMarkup(const QStringList& lines, const QFont& font) {
    QString markup;
    for (const QString& line : lines) {
        for (const QString& piece : broken(plain(line), font)) {
            markup += u"<p style='white-space:pre;margin:0'>" + piece.toHtmlEscaped() + u"</p>";
        }
    }
    return markup;
}

}  // namespace velorama
