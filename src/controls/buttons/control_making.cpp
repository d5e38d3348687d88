#include "controls/buttons/control_making.h"

#include "controls/buttons/dialog_button.h"

#include <QLabel>

namespace velorama {

cbtn* makeSymbolButton(QWidget* parent, const QString& name, const char* symbol,
                       const char* tooltip, const char* caption) {
    auto* button = new cbtn(parent);
    button->setObjectName(name);
    button->setText(QLatin1String(caption));
    button->setSymbol(QLatin1String(symbol));
    button->setToolTip(QLatin1String(tooltip));
    return button;
}

cbtn* makeButton(QWidget* parent, const QString& name, const char* symbol, const char* tooltip,
                 const char* caption) {
    cbtn* button = makeSymbolButton(parent, name, symbol, tooltip, caption);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

QPushButton* makeDialogButton(QWidget* dialog, const char* name, const QString& caption,
                              const QString& tooltip) {
    constexpr int leastWidth = 84;
    auto* button = make<DialogButton>(name, dialog);
    button->setText(caption);
    button->setToolTip(tooltip);
    button->setMinimumWidth(leastWidth);
    return button;
}

QLabel* makeText(QWidget* parent, const char* name, const QString& text) {
    auto* label = make<QLabel>(name, parent);
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    return label;
}

QLabel* makeTitle(QWidget* parent, const char* name, const QString& text, qreal scale) {
    QLabel* title = makeText(parent, name, text);
    QFont font = title->font();
    font.setPointSizeF(font.pointSizeF() * scale);
    font.setBold(true);
    title->setFont(font);
    return title;
}

}  // namespace velorama
