#include "ui/show_start.h"

namespace velorama {

ShowStart::ShowStart(QWidget& window, ScreenSaver& screenSaver, AudioEngine& audio,
                     const MusicControls& music, SettingsForm& settings)
    : window_(window),
      screenSaver_(screenSaver),
      audio_(audio),
      music_(music),
      settings_(settings) {}

ShowStart::~ShowStart() {
    delete form_;
}

void ShowStart::start() {
    if (form_ && !form_->isUnloaded()) {
        return;
    }
    form_ = new frmSLIDESHOW(*this, screenSaver_);
    form_->load(window_.screen());
}

void ShowStart::setVisible(bool visible) {
    if (visible) {
        keys_.begin();
    }
    window_.setVisible(visible);
    emit Changed();
}

void ShowStart::unload() {
    if (form_) {
        form_->Unload();
    }
}

}  // namespace velorama
