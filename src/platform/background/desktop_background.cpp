#include "platform/background/desktop_background.h"

#include "platform/background/background_means.h"

#include <QFileInfo>

#include <algorithm>
#include <array>
#include <chrono>
#include <iterator>
#include <vector>

namespace velorama {
namespace {

constexpr std::chrono::seconds longestWait{5};

/// A desktop: what it calls itself, how it is known where it does not (by who of it is on the bus,
/// or by a variable it sets), and the way to its background.
struct Desktop {
    std::array<const char*, 8> names;
    const char* service;
    const char* variable;
    bool (*set)(const BackgroundSession&, const QString&);
};

constexpr Desktop desktops[] = {
    {{"gnome", "gnome-flashback", "gnome-classic", "gnome-xorg", "ubuntu", "unity", "budgie",
      "pantheon"},
     "org.gnome.Shell",
     nullptr,
     setGnomeBackground},
    {{"x-cinnamon", "cinnamon"}, "org.Cinnamon", nullptr, setCinnamonBackground},
    {{"mate"}, "org.mate.Panel", nullptr, setMateBackground},
    {{"kde", "plasma", "plasmax11", "plasmawayland"},
     "org.kde.plasmashell",
     nullptr,
     setPlasmaBackground},
    {{"xfce", "xubuntu"}, "org.xfce.xfdesktop", nullptr, setXfceBackground},
    {{"lxqt", "lubuntu"}, "org.pcmanfm.PCManFM", nullptr, setLxqtBackground},
    {{"sway"}, nullptr, "SWAYSOCK", setSwayBackground},
};

bool hasName(const Desktop& desktop, const QString& name) {
    return std::any_of(desktop.names.begin(), desktop.names.end(), [&](const char* one) {
        return one != nullptr && name == QLatin1String(one);
    });
}

bool answers(const Desktop& desktop, const BackgroundSession& session) {
    return (desktop.service && session.hasService(QLatin1String(desktop.service))) ||
           (desktop.variable && !session.variable(desktop.variable).isEmpty());
}

/// By what the session calls itself; where it is silent or lies, by who is there.
std::vector<Desktop> running(const BackgroundSession& session) {
    std::vector<Desktop> result;
    for (const QString& name : session.desktops()) {
        std::copy_if(std::begin(desktops), std::end(desktops), std::back_inserter(result),
                     [&](const Desktop& desktop) { return hasName(desktop, name); });
    }
    std::copy_if(std::begin(desktops), std::end(desktops), std::back_inserter(result),
                 [&](const Desktop& desktop) { return answers(desktop, session); });
    return result;
}

class SessionBackground : public DesktopBackground {
public:
    bool set(const QString& file) override {
        return setBackground({QProcessEnvironment::systemEnvironment(),
                              QDBusConnection::sessionBus(), QDeadlineTimer(longestWait)},
                             file);
    }
};

}  // namespace

bool setBackground(const BackgroundSession& session, const QString& file) {
    const QFileInfo info(file);
    if (!info.isAbsolute() || !info.isFile()) {
        return false;
    }
    const std::vector<Desktop> found = running(session);
    if (std::any_of(found.begin(), found.end(),
                    [&](const Desktop& desktop) { return desktop.set(session, file); })) {
        return true;
    }
    // A desktop of its own paints over the root window. Without one, the portal's answer would be
    // that of some desktop's service that nobody looks at.
    return found.empty() ? setRootBackground(session, file) || setPortalBackground(session, file)
                         : setPortalBackground(session, file) || setRootBackground(session, file);
}

std::unique_ptr<DesktopBackground> makeDesktopBackground() {
    return std::make_unique<SessionBackground>();
}

}  // namespace velorama
