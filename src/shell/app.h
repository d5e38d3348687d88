#pragma once

#include <QString>

namespace velorama {

/// Where the running program lies (`App`).
struct AppPlace {
    QString Path;     // its folder
    QString EXEName;  // its name without an ending
};

AppPlace App();

/// The program's full path: with the ending ".exe" where the folder's path has a drive letter, with
/// none elsewhere.
QString programPath(const AppPlace& app);

/// Key below the user's hive that holds `Stored`, `.vlr` and `hwnd`.
QString detailsKey(const AppPlace& app);

}  // namespace velorama
