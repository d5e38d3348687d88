#include "world.h"

#include "core/globals.h"
#include "core/lib_txt.h"

#include <QTemporaryFile>

namespace velorama::bench {
namespace {

constexpr char screen[] = R"({ "screens": [ { "name": "one", "x": 0, "y": 0, "width": 1920,
  "height": 1080, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1 }, { "name": "two", "x": 1920,
  "y": 0, "width": 3840, "height": 2160, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1 } ] })";

}  // namespace

World::World() {
    fillTextConstants(2024, QStringLiteral("http://velorama.invalid/"));
    makeServices(store_, shell_);
    SystemVersion = QStringLiteral("6.1");
}

World::~World() {
    releaseServices();
}

void useScreenInMemory() {
    static QTemporaryFile file;
    if (file.open()) {
        file.write(screen);
        file.close();
        qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(file.fileName()));
    }
}

}  // namespace velorama::bench
