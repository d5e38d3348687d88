#include "controls/input/choice_box.h"

#include "controls/geometry/tip_markup.h"

#include <QHelpEvent>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QToolTip>

namespace velorama {
namespace {

constexpr int leastCharacters = 9;
// On both sides of an entry, in logical pixels.
constexpr int entryMargin = 2;

}  // namespace

ChoiceBox::ChoiceBox(QWidget* parent) : QComboBox(parent) {
    setSizeAdjustPolicy(AdjustToContents);
    setMinimumContentsLength(leastCharacters);
    connect(this, &QComboBox::currentIndexChanged, this, &ChoiceBox::tellOther);
}

void ChoiceBox::setText(const QString& text) {
    other_ = text;
    setCurrentIndex(findText(text));
    tellOther();
    update();
}

/// Screen readers know of the entries alone.
void ChoiceBox::tellOther() {
    setAccessibleDescription(currentIndex() < 0 ? other_ : QString());
}

QString ChoiceBox::fitted() const {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QRect field =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    return fontMetrics().elidedText(Text(), Qt::ElideRight, field.width() - 2 * entryMargin);
}

void ChoiceBox::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    option.currentText = fitted();
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

bool ChoiceBox::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && fitted() != Text()) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                           tipMarkup({Text()}, QToolTip::font()), this);
        return true;
    }
    return QComboBox::event(event);
}

}  // namespace velorama
