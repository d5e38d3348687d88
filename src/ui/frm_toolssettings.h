#pragma once

#include "controls/colour_drop_down.h"
#include "controls/picture_box.h"
#include "controls/push_button.h"
#include "controls/report_view.h"
#include "controls/up_down.h"

#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>

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

    Colour background() const { return background_; }
    Colour gradient() const { return gradient_; }
    /// OK and Cancel unload the form: whoever holds it lets it go then.
    bool isUnloaded() const { return unloaded_; }

    void btnOK_Click();
    void btnCANCEL_Click();

signals:
    void unloaded();

private:
    Colour background_ = 0;
    Colour gradient_ = 0;
    bool unloaded_ = false;
};

}  // namespace velorama
