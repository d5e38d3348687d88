#include "platform/store/registry_names.h"

#include <QList>

#include <algorithm>
#include <array>

namespace velorama {
namespace {

// The registry's own limits, in characters.
constexpr qsizetype longestSegment = 255;
constexpr qsizetype longestKey = 16383;
constexpr qsizetype longestName = 16383;

constexpr std::array<HiveName, 3> hiveNames = {{
    {Hive::ClassesRoot, QLatin1String("HKCR"), QLatin1String("HKEY_CLASSES_ROOT")},
    {Hive::CurrentUser, QLatin1String("HKCU"), QLatin1String("HKEY_CURRENT_USER")},
    {Hive::LocalMachine, QLatin1String("HKLM"), QLatin1String("HKEY_LOCAL_MACHINE")},
}};

const HiveName* find(QStringView name, QLatin1String HiveName::*member) {
    const auto found = std::find_if(hiveNames.begin(), hiveNames.end(), [&](const HiveName& one) {
        return name.compare(one.*member, Qt::CaseInsensitive) == 0;
    });
    return found != hiveNames.end() ? &*found : nullptr;
}

bool staysOnLine(QStringView text) {
    return !text.contains(u'\0') && !text.contains(u'\r') && !text.contains(u'\n');
}

}  // namespace

const HiveName* hiveByName(QStringView name) {
    return find(name, &HiveName::name);
}

const HiveName* hiveByLongName(QStringView name) {
    return find(name, &HiveName::longName);
}

const HiveName& nameOf(Hive hive) {
    return hiveNames.at(static_cast<quint32>(hive) & 0x7FFFFFFFU);
}

bool isKeyOfText(QStringView key) {
    if (key.isEmpty()) {
        return true;
    }
    const auto fits = [](QStringView segment) {
        return !segment.isEmpty() && segment.size() <= longestSegment;
    };
    const auto segments = key.size() <= longestKey ? key.split(u'\\') : QList<QStringView>();
    return !segments.isEmpty() && staysOnLine(key) &&
           std::all_of(segments.begin(), segments.end(), fits);
}

bool isNameOfText(QStringView name) {
    return name.size() <= longestName && staysOnLine(name);
}

}  // namespace velorama
