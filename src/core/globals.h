#pragma once

#include "core/cls_dlghook.h"
#include "core/cls_filefoldr.h"
#include "core/cls_library.h"
#include "core/cls_pagprops.h"
#include "core/cls_registry.h"
#include "core/cls_status.h"
#include "imaging/paint/gradient.h"
#include "imaging/pixels/colours.h"

#include <memory>

namespace velorama {

/// The service objects, made once at start and reached everywhere.
extern std::unique_ptr<clsPAGPROPS> gPagProps;
extern std::unique_ptr<clsLIBRARY> gLibrary;
extern std::unique_ptr<clsREGISTRY> gRegistry;
extern std::unique_ptr<clsPICGRDNT> gGradient;
extern std::unique_ptr<clsDLGHOOK> gDlgHook;
extern std::unique_ptr<clsSTATUS> gStatus;
extern std::unique_ptr<clsCOLRSTYLE> gColrStyle;
extern std::unique_ptr<clsFILEFOLDR> gFileFoldr;

/// The system's version as text, taken once at start.
extern QString SystemVersion;
/// True while the main window loads: the folder tree is silent then.
extern bool FormLoading;
/// "SELECTED" or "FOUND": the list the user touched last.
extern QString ActiveList;
/// The last Save As was left without a file.
extern bool SaveCancelled;

/// Makes all service objects over a store and a shell, in the order of the start, and takes
/// SystemVersion from the store. The store and the shell must outlive them.
void makeServices(RegistryStore& store, Shell& shell);
/// Releases them again.
void releaseServices();

/// True where pictures are scaled and faded; false on a system version of 4.99 or below.
bool isModernSystem();

/// Shorthand for settings under the program's root in the user's hive.
QString loadSetting(const QString& segment, const QString& name, const QString& fallback);
bool saveSetting(const QString& segment, const QString& name, const QString& value);
/// Many of one segment, by name, in their order; true if all were written.
bool saveSettings(const QString& segment, const std::vector<std::pair<QString, QString>>& values);

}  // namespace velorama
