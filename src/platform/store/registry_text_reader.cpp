#include "platform/store/registry_line.h"
#include "platform/store/registry_lines.h"
#include "platform/store/registry_names.h"
#include "platform/store/registry_text.h"

#include <QtEndian>

#include <utility>

namespace velorama {
namespace {

// A store with lists of a million paths has fewer. Each takes some hundred bytes of memory, and six
// of the file.
constexpr std::size_t mostEdits = 2'000'000;

const QString firstLine = QStringLiteral("Windows Registry Editor Version 5.00");

/// Texts come with the zero that ends them, or without: programs forget it.
std::optional<QByteArray> textOf(const QByteArray& bytes) {
    if (bytes.size() % 2 != 0) {
        return std::nullopt;
    }
    QString text(bytes.size() / 2, Qt::Uninitialized);
    qFromLittleEndian<quint16>(bytes.constData(), text.size(), text.data());
    if (text.endsWith(QChar(u'\0'))) {
        text.chop(1);
    }
    return text.isValidUtf16() ? std::optional(text.toUtf8()) : std::nullopt;
}

/// Nothing where the bytes are none of their type.
std::optional<RegistryValue> valueOf(quint32 type, const QByteArray& bytes) {
    const auto kind = static_cast<ValueType>(type);
    if (kind == ValueType::Text || kind == ValueType::ExpandableText) {
        const auto text = textOf(bytes);
        return text ? std::optional(RegistryValue{kind, *text}) : std::nullopt;
    }
    if (kind == ValueType::Number && bytes.size() == sizeof(quint32)) {
        const auto number = qFromLittleEndian<quint32>(bytes.constData());
        return RegistryValue{kind, QByteArray::number(number)};
    }
    return RegistryValue{kind, bytes};
}

class Reader {
public:
    explicit Reader(const QByteArray& bytes) : lines_(bytes) {}

    RegistryText read() && {
        if (!nextLine() || line_.rest() != firstLine) {
            fail(QStringLiteral("the first line is not \"%1\"").arg(firstLine));
        }
        while (!text_.fault && !lines_.atEnd()) {
            if (nextLine() && !line_.isDone()) {
                takeLine();
            }
        }
        if (text_.fault) {
            text_.edits.clear();
        }
        return std::move(text_);
    }

private:
    enum class Place { Nowhere, Key, RemovedKey };

    void fail(const QString& reason) {
        if (!text_.fault) {
            text_.fault = {qMax<qsizetype>(lines_.number(), 1), reason};
        }
    }

    bool nextLine() {
        QString fault;
        std::optional<QString> line = lines_.next(fault);
        if (!line) {
            fail(fault);
            return false;
        }
        line_ = RegistryLine(*std::move(line));
        return true;
    }

    void add(RegistryEdit::Kind kind, AddressedValue at) {
        if (text_.edits.size() == mostEdits) {
            fail(QStringLiteral("there are too many values"));
        } else {
            text_.edits.push_back({kind, std::move(at)});
        }
    }

    void takeLine() {
        if (line_.take(u'[')) {
            takeKey();
        } else if (place_ == Place::Nowhere) {
            fail(QStringLiteral("a value stands before the first key"));
        } else if (place_ == Place::RemovedKey) {
            fail(QStringLiteral("a value stands below a key that is removed"));
        } else {
            takeValue();
        }
    }

    /// A key's name may have brackets of its own.
    void takeKey() {
        const bool isRemoved = line_.take(u'-');
        QStringView path = line_.rest();
        if (!path.endsWith(u']')) {
            fail(QStringLiteral("the closing bracket of the key is missing"));
            return;
        }
        path.chop(1);
        const qsizetype end = path.indexOf(u'\\');
        const HiveName* hive = hiveByLongName(end < 0 ? path : path.first(end));
        const QStringView key = end < 0 ? QStringView() : path.sliced(end + 1);
        const bool isKey = end < 0 ? !isRemoved : !key.isEmpty() && isKeyOfText(key);
        if (hive == nullptr || !isKey) {
            fail(hive == nullptr ? QStringLiteral("there is no such root of keys")
                                 : QStringLiteral("this is no name of a key"));
            return;
        }
        place_ = isRemoved ? Place::RemovedKey : Place::Key;
        key_ = {.hive = hive->hive, .key = key.toString(), .name = {}, .value = {}};
        if (isRemoved) {
            add(RegistryEdit::Kind::Key, key_);
        }
    }

    void takeValue() {
        AddressedValue value = key_;
        if (!takeName(value.name)) {
            return;
        }
        line_.skipBlanks();
        if (!line_.take(u'=')) {
            fail(QStringLiteral("the = behind the name is missing"));
            return;
        }
        line_.skipBlanks();
        if (!takeData(value.value)) {
            fail(QStringLiteral("this is no data of a value"));
        } else if (!line_.isDone()) {
            fail(QStringLiteral("something stands behind the value"));
        } else {
            add(RegistryEdit::Kind::Value, std::move(value));
        }
    }

    bool takeName(QString& name) {
        if (line_.take(u'@')) {
            return true;
        }
        QString fault = QStringLiteral("this is neither a key nor a value");
        const auto quoted = line_.take(u'"') ? line_.takeQuoted(fault) : std::nullopt;
        if (!quoted || quoted->isEmpty() || !isNameOfText(*quoted)) {
            fail(quoted ? QStringLiteral("this is no name of a value") : fault);
            return false;
        }
        name = *quoted;
        return true;
    }

    /// False where there is none, or it is wrong. None for a value that is removed.
    bool takeData(std::optional<RegistryValue>& value) {
        if (line_.take(u'-')) {
            return true;
        }
        if (line_.take(u'"')) {
            QString fault;
            const auto text = line_.takeQuoted(fault);
            if (!text) {
                fail(fault);
                return false;
            }
            value = RegistryValue{ValueType::Text, text->toUtf8()};
        } else if (line_.takeWord(QLatin1String("dword:"))) {
            const auto number = line_.takeHex(8);
            value =
                number
                    ? std::optional(RegistryValue{ValueType::Number, QByteArray::number(*number)})
                    : std::nullopt;
        } else if (line_.takeWord(QLatin1String("hex"))) {
            value = takeBytes();
        }
        return value.has_value();
    }

    /// Behind the word `hex`: the type in brackets, if it is not plain bytes, and the bytes.
    std::optional<RegistryValue> takeBytes() {
        quint32 type = static_cast<quint32>(ValueType::Bytes);
        if (line_.take(u'(')) {
            const auto number = line_.takeHex(7);
            if (!number || !line_.take(u')')) {
                return std::nullopt;
            }
            type = *number;
        }
        if (!line_.take(u':')) {
            return std::nullopt;
        }
        const auto bytes = takeByteList();
        return bytes ? valueOf(type, *bytes) : std::nullopt;
    }

    std::optional<QByteArray> takeByteList() {
        QByteArray bytes;
        bool isDue = false;  // after a comma
        while (continueLine() && (isDue || !line_.isDone())) {
            const auto byte = line_.takeHex(2);
            if (!byte) {
                return std::nullopt;
            }
            bytes += static_cast<char>(*byte);
            line_.skipBlanks();
            isDue = line_.take(u',');
            if (!isDue) {
                break;
            }
        }
        return text_.fault ? std::nullopt : std::optional(bytes);
    }

    /// Goes on to the next line as often as a line ends in a backslash.
    bool continueLine() {
        line_.skipBlanks();
        while (line_.take(u'\\')) {
            if (!line_.isDone() || lines_.atEnd()) {
                fail(QStringLiteral("no line follows the backslash"));
                return false;
            }
            if (!nextLine()) {
                return false;
            }
            line_.skipBlanks();
        }
        return true;
    }

    RegistryLines lines_;
    RegistryLine line_;
    Place place_ = Place::Nowhere;
    AddressedValue key_;
    RegistryText text_;
};

}  // namespace

RegistryText readRegistryText(const QByteArray& bytes) {
    if (bytes.size() > largestRegistryText) {
        return {{}, RegistryTextFault{1, QStringLiteral("the file is too large")}};
    }
    return Reader(bytes).read();
}

}  // namespace velorama
