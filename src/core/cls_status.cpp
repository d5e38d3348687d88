#include "core/cls_status.h"

#include "controls/boxes/label.h"
#include "controls/buttons/symbol_picture.h"
#include "core/frm_helpmessagebox.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>

namespace velorama {
namespace {

struct Message {
    qint32 number;
    const char* description;
    const char* help;
    const char* symbol;
    QWidget* frmHELPMESSAGEBOX::*bar;
};

constexpr Message messages[] = {
    {8, "The file cannot be opened.", "The file may no longer exist or has not been saved yet.",
     "information", &frmHELPMESSAGEBOX::cframBTNBARO},
};

constexpr Message questions[] = {
    {6, "Do you wish to save before you close?",
     "Press Yes to save, press No to close the file, or cancel to return.", "question",
     &frmHELPMESSAGEBOX::cframBTNBARYNC},
};

template <size_t Rows>
const Message* messageOf(const Message (&table)[Rows], qint32 number) {
    for (const Message& row : table) {
        if (row.number == number) {
            return &row;
        }
    }
    return nullptr;
}

// With no active window of the program (another one has the focus) the message still belongs over
// the program's own.
QWidget* owner() {
    if (QWidget* active = QApplication::activeWindow()) {
        return active;
    }
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->windowType() == Qt::Window) {
            return window;
        }
    }
    return nullptr;
}

void fill(frmHELPMESSAGEBOX& form, const Message& message, const QString& text) {
    form.imgINFOICON->setSymbol(QString::fromLatin1(message.symbol));
    form.lblDESCRIPTION->setText(QString::fromLatin1(message.description));
    form.lblFILENAME->setCaption(text);
    form.lblHELPTEXT->setText(QString::fromLatin1(message.help));
    (form.*message.bar)->show();
}

/// A number without a row shows the form as it was made, without texts and buttons.
void show(clsSTATUS& status, const Message* message, const QString& text) {
    // The owner may take the form along while it is up.
    const QPointer<frmHELPMESSAGEBOX> form = new frmHELPMESSAGEBOX(status, owner());
    if (message) {
        fill(*form, *message, text);
    }
    form->showModal();
    delete form;
}

}  // namespace

void clsSTATUS::MessageBoxOpen(qint32 Number, const QString& Text) {
    show(*this, messageOf(messages, Number), Text);
}

qint32 clsSTATUS::MessageBoxQuestionOpen(qint32 Number, const QString& Text) {
    show(*this, messageOf(questions, Number), Text);
    return messageBoxClick_;
}

}  // namespace velorama
