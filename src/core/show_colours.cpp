#include "core/show_colours.h"

#include "core/globals.h"
#include "platform/numbers.h"

namespace velorama {
namespace {

constexpr Colour designBackground = 0x00000040;
constexpr Colour designGradient = 0x000000FF;

Colour storedColour(const QString& name, Colour design) {
    const QString text =
        loadSetting(QStringLiteral("\\frmTOOLSSETTINGS\\Items"), name, decimalText(design));
    return wholeNumber(text).value_or(design);
}

}  // namespace

Colour showBackground() {
    return storedColour(QStringLiteral("picBACKGROUND"), designBackground);
}

Colour showGradient() {
    return storedColour(QStringLiteral("picGRADCOLOR"), designGradient);
}

void GradientPaint(QImage& target, float angle, Colour color1, Colour color2) {
    gGradient->Angle(angle);
    gGradient->Color1(color1);
    gGradient->Color2(color2);
    gGradient->Draw(target);
}

}  // namespace velorama
