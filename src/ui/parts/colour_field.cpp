#include "ui/parts/colour_field.h"

#include "core/globals.h"
#include "platform/numbers.h"

namespace velorama {

ColourField::ColourField(const Names& names, CommonDialog& cdlDIALOG, QWidget* form)
    : QObject(form),
      dialog_(cdlDIALOG),
      button_(new ColourButton(form)),
      dropDown_(new cbtnddp(*button_)) {
    button_->setObjectName(QLatin1String(names.button));
    button_->setAccessibleName(QLatin1String(names.title));
    button_->swatch()->setObjectName(QLatin1String(names.swatch));
    button_->arrow()->setObjectName(QLatin1String(names.arrow));
    dropDown_->setObjectName(QLatin1String(names.dropDown));
    connect(button_, &ColourButton::clicked, dropDown_, &cbtnddp::Open);
    connect(dropDown_, &cbtnddp::ColorClick, this, &ColourField::choose);
    connect(dropDown_, &cbtnddp::ColorKey, this, &ColourField::choose);
    connect(dropDown_, &cbtnddp::Custom, this, &ColourField::askForColour);
}

void ColourField::setBackColor(Colour colour) {
    button_->showColour(colour);
    dropDown_->setColor(colour);
}

void ColourField::choose(const QString& colour) {
    if (const std::optional<qint32> value = wholeNumber(colour)) {
        setBackColor(*value);
        emit Chosen();
    }
}

void ColourField::askForColour() {
    dialog_.Color = BackColor();
    dialog_.DialogTitle = QStringLiteral("Custom Color");
    dialog_.Flags = FlagRgbInit | FlagFullOpen;
    gDlgHook->subCMNDLGHOOKOPEN();
    dialog_.ShowColor();
    gDlgHook->subCMNDLGHOOKCLOSE();
    setBackColor(dialog_.Color);
    emit Chosen();
}

}  // namespace velorama
