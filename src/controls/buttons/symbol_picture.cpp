#include "controls/buttons/symbol_picture.h"

#include "controls/buttons/icon.h"

#include <QPainter>

namespace velorama {

void SymbolPicture::setSymbol(const QString& name) {
    symbol_ = name;
    update();
}

void SymbolPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintSymbol(painter, QRectF(rect()), symbol_,
                palette().color(QPalette::Active, QPalette::Highlight));
}

}  // namespace velorama
