#pragma once

class QStyleOptionViewItem;
class QWidget;

namespace velorama {

/// True where the style of `view` cuts `option.text` to paint it in `option.rect`. Measured to the
/// fraction of a pixel, as the style does.
bool isPaintedCut(const QStyleOptionViewItem& option, const QWidget& view);

}  // namespace velorama
