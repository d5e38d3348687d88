#pragma once

#include "platform/session/shell.h"
#include "platform/store/settings_copy.h"

#include <memory>

namespace velorama {

/// The program's service objects over a copy of the settings, for as long as it lives: what is
/// written there stays in memory.
class CallServices {
public:
    CallServices();
    ~CallServices();
    CallServices(const CallServices&) = delete;
    CallServices& operator=(const CallServices&) = delete;

private:
    SettingsCopy settings_;
    std::unique_ptr<Shell> shell_;
};

}  // namespace velorama
