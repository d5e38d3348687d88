#include "controls/buttons/button_looks.h"

namespace velorama {

const ButtonPicture& ButtonLooks::of(Look look) const {
    if (disabledLook) {
        return imgImage5;
    }
    switch (look) {
        case Look::HLight:
            return imgImage3;
        case Look::Pressed:
            return imgImage4;
        default:
            return imgImage2;
    }
}

void ButtonLooks::read(const QVariantMap& bag, const ButtonPicture& normal) {
    const auto picture = [&bag](QLatin1String name) {
        return bag.value(name).value<ButtonPicture>();
    };
    imgImage2 = bag.contains(Normal) ? picture(Normal) : normal;
    imgImage3 = picture(HLight);
    imgImage4 = picture(Pressed);
    imgImage5 = picture(Disabled);
}

QVariantMap ButtonLooks::written() const {
    return {{Normal, QVariant::fromValue(imgImage2)},
            {HLight, QVariant::fromValue(imgImage3)},
            {Pressed, QVariant::fromValue(imgImage4)},
            {Disabled, QVariant::fromValue(imgImage5)}};
}

}  // namespace velorama
