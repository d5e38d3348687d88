#include "application.h"
#include "core/long_text.h"
#include "core/stored_list.h"
#include "entry.h"
#include "platform/numbers.h"
#include "support/services.h"

#include <QWidget>

#include <cmath>

using namespace velorama;

namespace {

const QString form = QStringLiteral("frmFUZZ");

void put(RegistryStore& store, const QString& segment, const QString& name,
         const RegistryValue& value) {
    store.setValue(Hive::CurrentUser, keyPath(segment), name, value);
}

/// One that would keep the entry busy is left out: the list looks for as many paths as it says.
bool isLongCount(const RegistryValue& value) {
    return wholeNumber(QString::fromUtf8(value.data)).value_or(0) > 1000;
}

void checkNumbers(const QString& text) {
    const std::optional<double> decimal = decimalNumber(text);
    const std::optional<qint32> whole = wholeNumber(text);
    fuzz::require(!decimal || leadingNumber(text) == decimal);
    fuzz::require(!whole || (decimal && std::nearbyint(*decimal) == *whole));
    fuzz::require(!whole || wholeNumber(decimalText(*whole)) == whole);
    if (decimal) {
        const QString shortest = singleText(static_cast<float>(*decimal));
        fuzz::require(decimalNumber(shortest).has_value());
        fuzz::require(singleText(static_cast<float>(numericValue(shortest))) == shortest);
    }
}

void checkText(const RegistryValue& value) {
    const QString fallback = QStringLiteral("fallback");
    const QString text =
        loadSetting(form + QStringLiteral("\\Window"), QStringLiteral("Left"), fallback);
    fuzz::require(text == fallback || fitsSettings(text) || text == QString(255, u' '));
    const bool isText = value.type == ValueType::Text || value.type == ValueType::ExpandableText;
    fuzz::require(isText || text == fallback);
    checkNumbers(text);
    checkNumbers(QString::fromUtf8(value.data));
}

void checkList(RegistryStore& store, const QList<RegistryValue>& values) {
    const StoredList list{QStringLiteral("\\frmFUZZ"), QStringLiteral("Fuzz"), 0};
    for (int i = 0; i < values.size(); ++i) {
        put(store, list.key + QStringLiteral("\\Details"), list.name + QString::number(i),
            values[i]);
    }
    if (!isLongCount(values.first())) {
        put(store, list.key + QStringLiteral("\\Items Total"),
            list.name + QStringLiteral("List Total"), values.first());
    }
    const QStringList paths = list.load({});
    list.save(paths);
    fuzz::require(list.load(paths) == paths);
}

/// A window's place: it must be one that can be reached.
void checkWindow(RegistryStore& store, const QList<RegistryValue>& values) {
    static const QString names[] = {QStringLiteral("Left"), QStringLiteral("Top"),
                                    QStringLiteral("Width"), QStringLiteral("Height"),
                                    QStringLiteral("Window State")};
    for (std::size_t i = 0; i < std::size(names); ++i) {
        put(store, form + QStringLiteral("\\Window"), names[i],
            values[static_cast<qsizetype>(i) % values.size()]);
    }
    QWidget window;
    window.setObjectName(form);
    gRegistry->FormDimensionsSetup(window, true);
    fuzz::require(window.width() >= 0 && window.height() >= 0);
}

/// Values of any type: a byte for it, then the bytes up to a zero.
QList<RegistryValue> valuesOf(const QByteArray& bytes) {
    QList<RegistryValue> values;
    for (const QByteArray& part : bytes.split('\0').mid(0, 16)) {
        const int type = part.isEmpty() ? 1 : static_cast<quint8>(part[0]) % 6;
        values << RegistryValue{static_cast<ValueType>(type), part.mid(1)};
    }
    return values;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    test::Services services;
    const QList<RegistryValue> values = valuesOf(fuzz::asBytes(data, size));
    checkWindow(services.store, values);
    checkText(values.first());
    checkList(services.store, values);
    return 0;
}
