#pragma once

#include "platform/background/background_session.h"

namespace velorama {

/// Sets the background of the session's desktop, whichever that is, in the first way that works.
/// `file` is the full path of a file; anything else is refused.
bool setBackground(const BackgroundSession& session, const QString& file);

/// The ways to the background of each desktop. All are given the full path of a file that exists;
/// true if the desktop took it, false also where this is not the desktop.

bool setGnomeBackground(const BackgroundSession& session, const QString& file);
bool setCinnamonBackground(const BackgroundSession& session, const QString& file);
bool setMateBackground(const BackgroundSession& session, const QString& file);
bool setPlasmaBackground(const BackgroundSession& session, const QString& file);
bool setXfceBackground(const BackgroundSession& session, const QString& file);
bool setLxqtBackground(const BackgroundSession& session, const QString& file);
bool setSwayBackground(const BackgroundSession& session, const QString& file);
/// Whatever desktop answers for programs that do not know it. The desktop may ask the user first:
/// true tells that the wish has been taken, not that it has been granted.
bool setPortalBackground(const BackgroundSession& session, const QString& file);
/// The root window of an X server, where no desktop's own window lies over it. Each monitor is
/// filled and what stands over cut off, as there is no setting to follow.
bool setRootBackground(const BackgroundSession& session, const QString& file);

/// A text as the command `gsettings` reads and writes it.
QString settingText(const QString& text);
QString fromSettingText(const QString& text);

/// The command that sets the background of all of sway's screens.
QString swayCommand(const QString& file);

}  // namespace velorama
