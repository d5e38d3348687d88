#include "core/cls_registry.h"

#include "core/lib_txt.h"
#include "core/long_text.h"
#include "platform/numbers.h"
#include "platform/utf8.h"

#include <algorithm>
#include <array>

namespace velorama {
namespace {

constexpr qsizetype bufferSize = longestSetting + 1;  // characters, the terminator included

bool isText(ValueType type) {
    return type == ValueType::Text || type == ValueType::ExpandableText;
}

/// Addresses that are complete without a protocol in front.
const std::array<QLatin1String, 5> protocols = {QLatin1String("http://"), QLatin1String("mailto:"),
                                                QLatin1String("news:"), QLatin1String("ftp:"),
                                                QLatin1String("https:")};

bool isComplete(const QString& link) {
    const QString lower = link.toLower();
    return std::any_of(protocols.begin(), protocols.end(),
                       [&lower](QLatin1String protocol) { return lower.contains(protocol); });
}

}  // namespace

clsREGISTRY::clsREGISTRY(RegistryStore& store, Shell& shell) : store_(store), shell_(shell) {}

QString clsREGISTRY::StringLoad(qint32 Hive, const QString& KeyPath, const QString& ValueName,
                                const QString& Default) const {
    const auto hive = static_cast<velorama::Hive>(Hive);
    const std::optional<RegistryValue> stored = store_.value(hive, KeyPath, ValueName);
    if (!stored || !isText(stored->type)) {
        return Default;
    }
    const QString text = textOfUtf8(stored->data);
    if (text.isEmpty()) {
        return QString(bufferSize, u' ');
    }
    return fitsSettings(text) ? text : Default;
}

bool clsREGISTRY::StringSave(const QString& Hive, const QString& KeyPath, const QString& ValueName,
                             const QString& Value) {
    const std::optional<qint32> hive = wholeNumber(Hive);
    return hive && store_.setValue(static_cast<velorama::Hive>(*hive), KeyPath, ValueName,
                                   {ValueType::Text, Value.toUtf8()});
}

bool clsREGISTRY::StringsSave(const QString& Hive, const QString& KeyPath,
                              const std::vector<std::pair<QString, QString>>& Values) {
    std::vector<NamedValue> named;
    named.reserve(Values.size());
    for (const auto& [name, value] : Values) {
        named.push_back({name, {ValueType::Text, value.toUtf8()}});
    }
    const std::optional<qint32> hive = wholeNumber(Hive);
    return hive && store_.setValues(static_cast<velorama::Hive>(*hive), KeyPath, named);
}

QString clsREGISTRY::WindowsVersion() const {
    QString version = StringLoad(HKEY_LOCAL_MACHINE,
                                 QStringLiteral("SOFTWARE\\MICROSOFT\\WINDOWS NT\\CURRENTVERSION"),
                                 QStringLiteral("CurrentVersion"), QString());
    if (!version.isEmpty()) {
        return version;
    }
    return StringLoad(HKEY_LOCAL_MACHINE,
                      QStringLiteral("SOFTWARE\\MICROSOFT\\WINDOWS\\CURRENTVERSION"),
                      QStringLiteral("VersionNumber"), QString());
}

QString clsREGISTRY::SpecialFLDRWindows(qint32 FolderId) const {
    return shell_.specialFolder(FolderId);
}

QString clsREGISTRY::SpecialFLDRMyDocuments() const {
    return SpecialFLDRWindows(5);
}

void clsREGISTRY::InternetLinkRun(const QString& /*HWnd*/, const QString& Protocol,
                                  const QString& Link) const {
    if (Link.isEmpty()) {
        return;
    }
    const QString protocol = Protocol.isEmpty() ? libTxt.ProtocolFile : Protocol;
    const bool whole = protocol == libTxt.ProtocolHttp || isComplete(Link);
    shell_.open(whole ? Link : protocol + Link);
}

}  // namespace velorama
