#include "ui/dialogs/settings_form.h"

#include <utility>

namespace velorama {

frmTOOLSSETTINGS& SettingsForm::loaded() {
    if (!form_ || form_->isUnloaded()) {
        delete form_;
        form_ = new frmTOOLSSETTINGS(&window_, album_.Tag(), lvwALBUMS_);
    }
    return *form_;
}

void SettingsForm::mnuTOOLSOPTIONS_Click() {
    // One that only a show has loaded knows nothing of what has changed since.
    if (form_ && !form_->isVisible()) {
        delete std::exchange(form_, nullptr);
    }
    loaded().exec();
}

void SettingsForm::unload() {
    if (form_ && !form_->isUnloaded()) {
        delete form_;
    }
}

}  // namespace velorama
