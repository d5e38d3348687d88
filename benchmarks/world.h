#pragma once

#include "platform/session/shell.h"
#include "support/memory_registry_store.h"

namespace velorama::bench {

class NoShell : public Shell {
public:
    bool open(const QString&) override { return false; }
    QString specialFolder(int) const override { return {}; }
};

/// The program's services over a settings store in memory, for as long as it lives.
class World {
public:
    World();
    ~World();
    World(const World&) = delete;
    World& operator=(const World&) = delete;

private:
    MemoryRegistryStore store_;
    NoShell shell_;
};

/// Tells Qt, before the application object is made, to draw into memory, on a screen of 1920 x 1080
/// and a second one of 3840 x 2160.
void useScreenInMemory();

}  // namespace velorama::bench
