#pragma once

#include "controls/buttons/button_picture.h"

#include <QVariant>

namespace velorama {

/// The pictures of a button, one for each of its states.
struct ButtonLooks {
    enum class Look { Normal, HLight, Pressed };

    /// Their names in a bag of properties.
    static constexpr QLatin1String Normal{"PICTURENORMAL"};
    static constexpr QLatin1String HLight{"PICTUREHLIGHT"};
    static constexpr QLatin1String Pressed{"PICTUREPRESSED"};
    static constexpr QLatin1String Disabled{"PICTUREDISABLED"};

    ButtonPicture imgImage2;  // normal
    ButtonPicture imgImage3;  // highlight
    ButtonPicture imgImage4;  // pressed
    ButtonPicture imgImage5;  // disabled
    /// Every state shows the disabled picture.
    bool disabledLook = false;

    const ButtonPicture& of(Look look) const;
    /// `normal` stands for a normal picture that the bag has not.
    void read(const QVariantMap& bag, const ButtonPicture& normal);
    QVariantMap written() const;
};

}  // namespace velorama
