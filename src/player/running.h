#pragma once

#include "player/frm_slideshow.h"

namespace velorama {

/// Marks that a procedure of the form is running, for as long as it lives: events that run inside
/// may unload the form, which must then outlive the procedure.
class frmSLIDESHOW::Running {
public:
    explicit Running(frmSLIDESHOW& form) : form_(form) { ++form_.running_; }
    ~Running() {
        if (--form_.running_ == 0 && form_.unloaded_) {
            form_.deleteLater();
        }
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

private:
    frmSLIDESHOW& form_;
};

}  // namespace velorama
