#include "controls/lists/cut_text.h"

#include <QFontMetricsF>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QWidget>

namespace velorama {

bool isPaintedCut(const QStyleOptionViewItem& option, const QWidget& view) {
    const QStyle& style = *view.style();
    const QRect place = style.subElementRect(QStyle::SE_ItemViewItemText, &option, &view);
    const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &view) + 1;
    return QFontMetricsF(view.font()).horizontalAdvance(option.text) > place.width() - 2 * margin;
}

}  // namespace velorama
