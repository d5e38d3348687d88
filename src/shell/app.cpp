#include "shell/app.h"

#include "platform/files/paths.h"
#include "shell/assoc_com.h"

#include <QCoreApplication>

namespace velorama {

AppPlace App() {
    return {QCoreApplication::applicationDirPath(), QStringLiteral("velorama")};
}

QString programPath(const AppPlace& app) {
    const bool hasEnding = pathSeparator(app.Path) == u'\\';
    return FileSlash(app.Path) + app.EXEName + (hasEnding ? QStringLiteral(".exe") : QString());
}

QString detailsKey(const AppPlace& app) {
    return QStringLiteral("Software\\Details\\") + app.EXEName;
}

}  // namespace velorama
