#pragma once

#include "platform/session/shell.h"
#include "platform/store/registry_store.h"

#include <QWidget>

#include <utility>
#include <vector>

namespace velorama {

/// Hives as the callers of StringLoad (number) and StringSave (decimal text) name them.
constexpr qint32 HKEY_CURRENT_USER = static_cast<qint32>(0x80000001U);
constexpr qint32 HKEY_LOCAL_MACHINE = static_cast<qint32>(0x80000002U);
inline const QString hiveCurrentUser = QStringLiteral("-2147483647");

/// Reads and writes settings, and asks the system for its version, its folders and its link
/// handler.
class clsREGISTRY {
public:
    clsREGISTRY(RegistryStore& store, Shell& shell);

    /// The text stored; `Default` if the key is absent or may not be opened for writing, if the
    /// value is absent or no text, or has 255 characters or more. A text stored empty comes back as
    /// 255 blanks.
    QString StringLoad(qint32 Hive, const QString& KeyPath, const QString& ValueName,
                       const QString& Default) const;
    /// `Hive` as decimal text of the signed number. True if the value was written.
    bool StringSave(const QString& Hive, const QString& KeyPath, const QString& ValueName,
                    const QString& Value);

    /// The same with several values of one key, by name. True if all were written.
    bool StringsSave(const QString& Hive, const QString& KeyPath,
                     const std::vector<std::pair<QString, QString>>& Values);

    /// Window state and geometry of a form, in twips, under the form's object name.
    void FormDimensionsSave(const QWidget& form, bool Full);
    void FormDimensionsSetup(QWidget& form, bool Full) const;

    QString WindowsVersion() const;
    /// A shell special folder by its CSIDL number; empty if there is none.
    QString SpecialFLDRWindows(qint32 FolderId) const;
    QString SpecialFLDRMyDocuments() const;
    void InternetLinkRun(const QString& HWnd, const QString& Protocol, const QString& Link) const;

private:
    RegistryStore& store_;
    Shell& shell_;
};

}  // namespace velorama
