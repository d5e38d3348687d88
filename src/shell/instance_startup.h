#pragma once

#include "platform/store/registry_store.h"
#include "shell/app.h"
#include "shell/comm.h"

#include <memory>

namespace velorama {

/// The start-up arguments and the hand-over to an instance that runs already (`mASSOCSTART`). The
/// second instance is not ended by it, and the first does nothing about what it is handed.
class InstanceStart {
public:
    /// Without a bus there is no hand-over. Both must outlive this, and this its window.
    InstanceStart(RegistryStore& store, InstanceBus* bus, const AppPlace& app = App());

    /// `commandLine` is what follows the program's own name, in one text. `mainWindow` has its
    /// caption already. Its handle becomes `hwnd`, last of all; a window that has none yet is bound
    /// and written down when it gets it.
    void InstanceStartup(QWidget& mainWindow, const QString& commandLine);

private:
    /// Window of the first instance, 0 if there is none to be found.
    quint32 InstanceFind() const;
    void StartFileOpen(const QString& path);
    void cComm_MessageReceived(const QString& message);
    void handOver(const QString& file);

    RegistryStore& store_;
    InstanceBus* bus_;
    Hive root_ = Hive::CurrentUser;
    QString key_;
    QString caption_;
    std::unique_ptr<Comm> cComm_;
};

}  // namespace velorama
