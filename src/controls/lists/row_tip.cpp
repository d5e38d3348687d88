#include "controls/lists/row_tip.h"

#include "controls/geometry/tip_markup.h"

#include <QToolTip>

namespace velorama {

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
