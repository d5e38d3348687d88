#pragma once

#include "controls/boxes/picture_box.h"
#include "controls/dialogs/common_dialog.h"
#include "controls/input/up_down.h"
#include "controls/lists/report_view.h"
#include "ui/parts/colour_field.h"
#include "ui/parts/description_edit.h"

#include <QCheckBox>
#include <QDialog>
#include <QPushButton>

class QBoxLayout;
class QLabel;

namespace velorama {

/// "Slideshow Settings": the show's intervals, its bar and the two colours behind it. It loads
/// when it comes into being, from the settings, and is made anew after each unload. The player
/// takes its two colours from it without showing it.
class frmTOOLSSETTINGS : public QDialog {
    Q_OBJECT
public:
    /// `albumPath`: the album that is open, empty for none; its row in `lvwALBUMS` has the
    /// description. `main` is the owner window.
    frmTOOLSSETTINGS(QWidget* main, const QString& albumPath, const ReportView& lvwALBUMS);

    Colour background() const { return picBACKGROUND->BackColor(); }
    Colour gradient() const { return picGRADCOLOR->BackColor(); }
    /// OK and Cancel unload the form: whoever holds it lets it go then.
    bool isUnloaded() const { return unloaded_; }

    void btnOK_Click();
    void btnCANCEL_Click();

    /// Esc and the title bar's button.
    void reject() override { btnCANCEL_Click(); }

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void makeControls();
    void layOut();
    QWidget* toolbarGroup();
    QWidget* intervalGroup();
    QWidget* colourGroup();
    QWidget* descriptionGroup();
    QBoxLayout* buttons();

    void Form_Load(const QString& albumPath, const ReportView& lvwALBUMS);
    void paintSample();
    void showFade();
    void unload();

    CommonDialog cdlDIALOG{this};
    QCheckBox* chkTBAR = nullptr;
    updown* udnINTERVAL = nullptr;
    updown* udnTRANSITIONVAL = nullptr;
    QLabel* lblFADE = nullptr;
    /// With cddGRADSHDW, btnBACK and darBACKGROUND.
    ColourField* picBACKGROUND = nullptr;
    /// With cddGRAD, btnGRADCOLOR and darGRAD.
    ColourField* picGRADCOLOR = nullptr;
    PictureBox* picSAMPLE = nullptr;
    DescriptionEdit* txtDESC = nullptr;
    QPushButton* btnOK = nullptr;
    QPushButton* btnCANCEL = nullptr;
    bool unloaded_ = false;
};

}  // namespace velorama
