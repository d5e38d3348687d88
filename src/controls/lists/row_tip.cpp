#include "controls/lists/row_tip.h"

#include <QTextLayout>
#include <QToolTip>

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

std::optional<QPoint> RowTip::place() const {
    const bool isUp = QToolTip::isVisible() && !shown_.isEmpty() && QToolTip::text() == shown_;
    return isUp ? std::optional(at_) : std::nullopt;
}

void RowTip::show(const QHelpEvent& event, const QStringList& lines) {
    at_ = event.pos();
    show(event.globalPos(), lines);
}

void RowTip::show(const QPoint& screen, const QStringList& lines) {
    screen_ = screen;
    shown_ = tipMarkup(lines, QToolTip::font());
    QToolTip::showText(screen, shown_, view_.viewport(), view_.visualRect(view_.indexAt(at_)));
}

void RowTip::renew(const QStringList& lines) {
    if (place() && tipMarkup(lines, QToolTip::font()) != shown_) {
        show(screen_, lines);
    }
}

}  // namespace velorama
