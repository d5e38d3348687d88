#pragma once

#include <QString>

#include <optional>

namespace velorama::desktop {

class DesktopSession;

/// The key below which the program keeps its own values, with its closing backslash.
inline constexpr char16_t kSettingsRoot[] = u"SOFTWARE\\Brightquay\\Velorama\\";

/// The settings store of a session, read and filled from outside, as a second process would. The
/// program writes a little after the change: wait with `waitFor` for the value that is wanted.
/// Keys are whole ("SOFTWARE\Brightquay\Velorama\mfrmPRGMAIN\View"), joined by backslashes.
class Store {
public:
    explicit Store(const DesktopSession& session);
    /// The store below $XDG_CONFIG_HOME.
    explicit Store(const QString& configFolder);

    QString file() const { return m_file; }
    /// Nothing if there is no such value, or no store yet. Letter case of key and name is ignored.
    std::optional<QString> value(const QString& key, const QString& name,
                                 const QString& hive = QStringLiteral("HKCU")) const;
    /// Sets a text; makes the store if there is none. For the time before the program starts.
    bool setValue(const QString& key, const QString& name, const QString& text,
                  const QString& hive = QStringLiteral("HKCU")) const;

    /// The same for a key below the program's root: `setting(u"mfrmPRGMAIN\\View", u"TABIDX")`.
    std::optional<QString> setting(const QString& key, const QString& name) const;
    bool setSetting(const QString& key, const QString& name, const QString& text) const;

private:
    QString m_file;
};

}  // namespace velorama::desktop
