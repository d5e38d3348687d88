#include "calls/call_options.h"

#include "calls/call_making.h"
#include "calls/option_table.h"
#include "platform/files/paths.h"

#include <QCommandLineParser>
#include <QFileInfo>

#include <algorithm>

namespace velorama {
namespace {

bool isOption(const QString& word) {
    return word.startsWith(QLatin1String("--")) && !QFileInfo(hostFile(word)).isFile();
}

void declareOptions(QCommandLineParser& parser) {
    for (const OptionRow& row : optionTable()) {
        parser.addOption({row.name, row.help, row.value});
    }
}

/// Null for a name that is none of ours.
const OptionRow* rowOf(const QString& name) {
    const std::vector<OptionRow>& table = optionTable();
    const auto row = std::find_if(table.begin(), table.end(),
                                  [&](const OptionRow& one) { return one.name == name; });
    return row != table.end() ? &*row : nullptr;
}

/// What the parser has to say ends in a full stop, and names options in quotes.
QString parserMessage(const QCommandLineParser& parser) {
    const QStringList unknown = parser.unknownOptionNames();
    if (!unknown.isEmpty()) {
        const QString& name = unknown.first();
        const bool isShort = name.size() == 1 && name != QLatin1String("-");
        return u"unknown option " + (isShort ? QStringLiteral("-") : QStringLiteral("--")) + name;
    }
    QString message = parser.errorText();
    message.replace(0, 1, message.left(1).toLower());
    return message.endsWith(u'.') ? message.chopped(1) : message;
}

/// The option that names the call; null, with a message, where there is none or more than one.
const OptionRow* leadingRow(const QStringList& names, QString& message) {
    const OptionRow* leading = nullptr;
    for (const QString& name : names) {
        const OptionRow* row = rowOf(name);
        if (row == nullptr || !row->leads || row == leading) {
            continue;
        }
        if (leading != nullptr) {
            message = u"--" + row->name + u" does not go with --" + leading->name;
            return nullptr;
        }
        leading = row;
    }
    if (leading == nullptr) {
        message = names.isEmpty()
                      ? QStringLiteral("no call is named")
                      : QString(u"--" + names.first() + u" belongs to a call that is missing");
    }
    return leading;
}

/// What is wrong with one option of a call; empty if nothing is.
QString mistakeIn(const OptionRow& row, const QCommandLineParser& parser, CallKind call,
                  const QString& leading) {
    const QString name = u"--" + row.name;
    if (row.call != call) {
        return name + u" does not go with --" + leading;
    }
    if (!row.takesMany && parser.optionNames().count(row.name) > 1) {
        return name + u" is given more than once";
    }
    const bool isEmpty = !row.value.isEmpty() && parser.values(row.name).contains(QString());
    return isEmpty ? QString(name + u" needs a value") : QString();
}

QString mistakeIn(const QCommandLineParser& parser, const OptionRow& leading) {
    bool takesRest = false;
    for (const QString& name : parser.optionNames()) {
        const OptionRow* row = rowOf(name);
        QString mistake =
            row != nullptr ? mistakeIn(*row, parser, leading.call, leading.name) : QString();
        if (!mistake.isEmpty()) {
            return mistake;
        }
        takesRest = takesRest || (row != nullptr && row->takesMany);
    }
    const QStringList rest = parser.positionalArguments();
    return rest.isEmpty() || takesRest ? QString() : QString(u"one word too many: " + rest.first());
}

Call parsedCall(const QStringList& arguments) {
    QCommandLineParser parser;
    declareOptions(parser);
    if (!parser.parse(arguments)) {
        return WrongCall{parserMessage(parser)};
    }
    QString message;
    const OptionRow* leading = leadingRow(parser.optionNames(), message);
    if (leading == nullptr) {
        return WrongCall{message};
    }
    message = mistakeIn(parser, *leading);
    return message.isEmpty() ? makeCall(leading->call, parser) : Call(WrongCall{message});
}

}  // namespace

std::optional<Call> callOf(const QStringList& arguments) {
    return isOption(arguments.value(1)) ? std::optional(parsedCall(arguments)) : std::nullopt;
}

}  // namespace velorama
