#include "ui/dialogs/frm_toolssettings.h"

#include "core/globals.h"
#include "core/show_colours.h"
#include "platform/numbers.h"
#include "player/show_timing.h"
#include "ui/parts/show_length.h"

#include <QKeyEvent>
#include <QLabel>

namespace velorama {
namespace {

// The first segment is the name of a form of earlier days.
const QString configKey = QStringLiteral("\\frmCONFIG\\Items");
const QString settingsKey = QStringLiteral("\\frmTOOLSSETTINGS\\Items");

// A text that is no number, and a number the field refuses, leave its design value.
void loadInto(updown& field, const QString& name) {
    const QString text = loadSetting(configKey, name, field.Text());
    if (const std::optional<qint32> value = wholeNumber(text)) {
        field.setValue(*value);
    }
}

}  // namespace

frmTOOLSSETTINGS::frmTOOLSSETTINGS(QWidget* main, const QString& albumPath,
                                   const ReportView& lvwALBUMS)
    : QDialog(main) {
    setObjectName(QStringLiteral("frmTOOLSSETTINGS"));
    setWindowTitle(QStringLiteral("Slideshow Settings"));
    makeControls();
    layOut();
    Form_Load(albumPath, lvwALBUMS);
}

void frmTOOLSSETTINGS::Form_Load(const QString& albumPath, const ReportView& lvwALBUMS) {
    picGRADCOLOR->setBackColor(showGradient());
    picBACKGROUND->setBackColor(showBackground());
    const QString bar = loadSetting(configKey, QStringLiteral("TBAR"), QStringLiteral("1"));
    chkTBAR->setChecked(wholeNumber(bar) == 1);
    if (const ReportItem* album = lvwALBUMS.item(albumPath)) {
        txtDESC->setText(album->SubItems(1));
    }
    loadInto(*udnINTERVAL, QStringLiteral("INTERVAL"));
    loadInto(*udnTRANSITIONVAL, QStringLiteral("TRANSITION"));
    showFade();
    paintSample();
}

void frmTOOLSSETTINGS::showFade() {
    const qint64 fade = qint64{fadeSteps} * udnTRANSITIONVAL->Value();
    const bool cut = fade > qint64{1000} * udnINTERVAL->Value();
    lblFADE->setText(
        QStringLiteral("The fade lasts ") + durationText(fade) +
        (cut ? QStringLiteral(", longer than a picture stays.") : QStringLiteral(".")));
    QFont font = this->font();
    font.setBold(cut);
    lblFADE->setFont(font);
}

void frmTOOLSSETTINGS::paintSample() {
    GradientPaint(picSAMPLE->Image(), 45, background(), gradient());
    picSAMPLE->Refresh();
}

void frmTOOLSSETTINGS::btnOK_Click() {
    if (unloaded_) {
        return;
    }
    saveSetting(configKey, QStringLiteral("TBAR"), decimalText(chkTBAR->isChecked() ? 1 : 0));
    saveSetting(configKey, QStringLiteral("INTERVAL"), decimalText(udnINTERVAL->Value()));
    saveSetting(configKey, QStringLiteral("TRANSITION"), decimalText(udnTRANSITIONVAL->Value()));
    saveSetting(settingsKey, QStringLiteral("picGRADCOLOR"), decimalText(gradient()));
    saveSetting(settingsKey, QStringLiteral("picBACKGROUND"), decimalText(background()));
    unload();
}

void frmTOOLSSETTINGS::btnCANCEL_Click() {
    if (!unloaded_) {
        unload();
    }
}

void frmTOOLSSETTINGS::unload() {
    unloaded_ = true;
    done(QDialog::Rejected);
}

bool frmTOOLSSETTINGS::event(QEvent* event) {
    const bool handled = QDialog::event(event);
    // The sample has the pixels of the screen that it is on.
    if (event->type() == QEvent::Show || event->type() == QEvent::ScreenChangeInternal) {
        paintSample();
    }
    return handled;
}

void frmTOOLSSETTINGS::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F1) {
        gLibrary->subHELPCENTERPAGEOPEN(QStringLiteral("menutoolsoptions.html"));
        return;
    }
    QDialog::keyPressEvent(event);
}

}  // namespace velorama
