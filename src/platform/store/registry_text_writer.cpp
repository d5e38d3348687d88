#include "platform/store/registry_names.h"
#include "platform/store/registry_text.h"
#include "platform/utf8.h"

#include <QtEndian>

#include <algorithm>
#include <iterator>
#include <tuple>
#include <utility>

namespace velorama {
namespace {

const QString lineEnd = QStringLiteral("\r\n");
constexpr int bytesInLine = 25;

QString quoted(const QString& text) {
    QString inside = text;
    inside.replace(u'\\', QLatin1String("\\\\")).replace(u'"', QLatin1String("\\\""));
    return u'"' + inside + u'"';
}

QString byteList(const QByteArray& bytes) {
    QString list;
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        if (i > 0) {
            list += i % bytesInLine == 0 ? QStringLiteral(",\\\r\n  ") : QStringLiteral(",");
        }
        list += QString::fromLatin1(bytes.mid(i, 1).toHex());
    }
    return list;
}

QByteArray inUtf16(const QString& text) {
    QByteArray bytes(text.size() * 2, Qt::Uninitialized);
    qToLittleEndian<quint16>(text.utf16(), text.size(), bytes.data());
    return bytes;
}

QString ofType(ValueType type, const QByteArray& bytes) {
    const QString word = type == ValueType::Bytes
                             ? QStringLiteral("hex:")
                             : QStringLiteral("hex(%1):").arg(static_cast<int>(type), 0, 16);
    return word + byteList(bytes);
}

/// In quotes a text stays on its line.
QString dataOfText(const RegistryValue& value) {
    const QString text = textOfUtf8(value.data);
    const bool staysOnLine =
        std::none_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < u' '; });
    return value.type == ValueType::Text && staysOnLine
               ? quoted(text)
               : ofType(value.type, inUtf16(text + QChar(u'\0')));
}

/// A number that is none of 32 bits, put in by hand, keeps its bytes.
QString dataOfNumber(const RegistryValue& value) {
    bool isNumber = false;
    const quint32 number = value.data.toUInt(&isNumber);
    return isNumber && QByteArray::number(number) == value.data
               ? QStringLiteral("dword:%1").arg(number, 8, 16, QLatin1Char('0'))
               : ofType(value.type, value.data);
}

QString dataOf(const RegistryValue& value) {
    switch (value.type) {
        case ValueType::Text:
        case ValueType::ExpandableText:
            return dataOfText(value);
        case ValueType::Number:
            return dataOfNumber(value);
        default:
            return ofType(value.type, value.data);
    }
}

/// Letter case counts for nothing, but for entries that differ in it alone.
struct Sorting {
    explicit Sorting(AddressedValue entry)
        : key(foldedAddress(entry.key)), name(foldedAddress(entry.name)), at(std::move(entry)) {}
    bool operator<(const Sorting& other) const {
        return std::tie(at.hive, key, name, at.key, at.name) <
               std::tie(other.at.hive, other.key, other.name, other.at.key, other.at.name);
    }
    QString key;
    QString name;
    AddressedValue at;
};

QString plainText(std::vector<AddressedValue> values) {
    std::vector<Sorting> sorted(std::make_move_iterator(values.begin()),
                                std::make_move_iterator(values.end()));
    std::sort(sorted.begin(), sorted.end());
    QString text = QStringLiteral("Windows Registry Editor Version 5.00") + lineEnd;
    const Sorting* before = nullptr;
    for (const Sorting& one : sorted) {
        if (!one.at.value) {
            continue;
        }
        if (before == nullptr || before->at.hive != one.at.hive || before->key != one.key) {
            const QString below = one.at.key.isEmpty() ? QString() : u'\\' + one.at.key;
            text += lineEnd + u'[' + nameOf(one.at.hive).longName + below + u']' + lineEnd;
        }
        const QString name = one.at.name.isEmpty() ? QStringLiteral("@") : quoted(one.at.name);
        text += name + u'=' + dataOf(*one.at.value) + lineEnd;
        before = &one;
    }
    return text + lineEnd;
}

}  // namespace

QByteArray registryText(std::vector<AddressedValue> values, RegistryEncoding encoding) {
    const QString text = plainText(std::move(values));
    return encoding == RegistryEncoding::Utf8 ? text.toUtf8()
                                              : QByteArray("\xFF\xFE") + inUtf16(text);
}

QString unwritableAddress(const std::vector<AddressedValue>& values) {
    for (const AddressedValue& one : values) {
        if (!isKeyOfText(one.key)) {
            return one.key;
        }
        if (!isNameOfText(one.name)) {
            return one.name;
        }
    }
    return {};
}

}  // namespace velorama
