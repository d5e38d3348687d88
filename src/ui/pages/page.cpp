#include "ui/pages/page.h"

#include "controls/geometry/caption_room.h"
#include "controls/geometry/twips.h"
#include "imaging/pixels/colours.h"

namespace velorama {
namespace {

constexpr Colour highlight3D = systemColour(20);

}  // namespace

Page::Page(const char* name, QWidget& surface) : QWidget(&surface) {
    setObjectName(QLatin1String(name));
    place(*this, 75, 405, 10890, 3350);
    setAutoFillBackground(true);
    hide();
}

QColor Page::pageColour() {
    return QColor(toRgb(highlight3D));
}

void Page::tint() {
    QPalette ground = palette();
    ground.setColor(QPalette::Window, pageColour());
    setPalette(ground);
}

void Page::giveRowRoom(std::initializer_list<cbtn*> buttons, float left) const {
    float begin = Width(*this);
    for (cbtn* button : buttons) {
        button->setCompact(false);
        giveRoom(*button, mostFootHeight);
        begin -= 90 + Width(*button);
    }
    if (begin >= left) {
        return;
    }
    for (cbtn* button : buttons) {
        button->setCompact(true);
        setWidth(*button, toTwips(button->sizeHint().width()));
    }
}

void Page::placeRow(std::initializer_list<cbtn*> buttons) const {
    float right = Width(*this);
    for (cbtn* button : buttons) {
        setLeft(*button, right - 90 - Width(*button));
        setTop(*button, Height(*this) - footHeight);
        right = Left(*button);
    }
}

}  // namespace velorama
