#include "ui/parts/description_edit.h"

#include "controls/input/keys.h"
#include "controls/input/one_line.h"

#include <QInputMethodEvent>
#include <QKeyEvent>

namespace velorama {
namespace {

bool isCancelledOnKeyDown(int code, bool shift) {
    return ((code == KeyApostrophe || code == KeyComma) && !shift) ||
           (code == KeyBackslash && shift);
}

bool isSeparator(QChar character) {
    const char16_t code = character.unicode();
    return code == 44 || code == 39 || code == 124;
}

}  // namespace

DescriptionEdit::DescriptionEdit(QWidget* parent) : QLineEdit(parent) {
    keepOneLine(*this);
}

void DescriptionEdit::keyPressEvent(QKeyEvent* event) {
    const bool shift = event->modifiers().testFlag(Qt::ShiftModifier);
    const QString text = event->text();
    if (isCancelledOnKeyDown(keyCode(*event), shift) ||
        (text.size() == 1 && isSeparator(text.front()))) {
        event->accept();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

// What a compose key or an input method delivers has been typed too.
void DescriptionEdit::inputMethodEvent(QInputMethodEvent* event) {
    QString typed = event->commitString();
    typed.removeIf(isSeparator);
    QInputMethodEvent passed(event->preeditString(), event->attributes());
    passed.setCommitString(typed, event->replacementStart(), event->replacementLength());
    QLineEdit::inputMethodEvent(&passed);
    event->setAccepted(passed.isAccepted());
}

}  // namespace velorama
