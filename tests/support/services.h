#pragma once

#include "core/globals.h"
#include "core/lib_txt.h"
#include "support/memory_registry_store.h"
#include "support/recording_shell.h"

namespace velorama::test {

/// The program's service objects over a store in memory, for as long as it lives.
struct Services {
    explicit Services(const QString& serverRoot = QStringLiteral("http://server.invalid/")) {
        fillTextConstants(2026, serverRoot);
        makeServices(store, shell);
    }
    ~Services() { releaseServices(); }
    Services(const Services&) = delete;
    Services& operator=(const Services&) = delete;

    MemoryRegistryStore store;
    RecordingShell shell;
};

}  // namespace velorama::test
