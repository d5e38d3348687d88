#include "platform/session/file_type_texts.h"

#include <QStringList>

#include <algorithm>

namespace velorama {
namespace {

// What makes a word of a command line need quotes.
const QString reserved = QStringLiteral(" \t\n\"'\\><~|&;$*?#()`");
// What needs a backslash inside quotes.
const QString escapedInQuotes = QStringLiteral("\"`$\\");
// Once the program is gone the entry counts as gone too.
const QString programKey = QStringLiteral("TryExec=");

QChar unescaped(QChar c) {
    switch (c.unicode()) {
        case u's':
            return u' ';
        case u'n':
            return u'\n';
        case u'r':
            return u'\r';
        case u't':
            return u'\t';
        default:
            return c;
    }
}

QString quoted(const QString& word) {
    QString result = QStringLiteral("\"");
    for (const QChar c : word) {
        if (escapedInQuotes.contains(c)) {
            result += u'\\';
        }
        result += c;
    }
    return result + u'"';
}

}  // namespace

QString entryValue(const QString& text) {
    QString value = text;
    value.replace(u'\\', QStringLiteral("\\\\"));
    value.replace(u'\n', QStringLiteral("\\n"));
    value.replace(u'\r', QStringLiteral("\\r"));
    return value.replace(u'\t', QStringLiteral("\\t"));
}

QString entryText(const QString& value) {
    QString text;
    for (qsizetype i = 0; i < value.size(); ++i) {
        const bool escaped = value[i] == u'\\' && i + 1 < value.size();
        text += escaped ? unescaped(value[++i]) : value[i];
    }
    return text;
}

QString execWord(const QString& word) {
    QString fields = word;
    fields.replace(u'%', QStringLiteral("%%"));
    const bool plain = !word.isEmpty() && std::none_of(word.begin(), word.end(), [](QChar c) {
        return reserved.contains(c);
    });
    // A command line is a text value like any other, so its backslashes are doubled once more.
    return plain ? fields : entryValue(quoted(fields));
}

QString desktopEntry(const FileType& type) {
    const QStringList lines = {
        QStringLiteral("[Desktop Entry]"),
        QStringLiteral("Type=Application"),
        QStringLiteral("Version=1.4"),
        QStringLiteral("Name=") + entryValue(type.programName),
        QStringLiteral("Comment=") + entryValue(type.programComment),
        QStringLiteral("Exec=") + execWord(type.program) + QStringLiteral(" %f"),
        programKey + entryValue(type.program),
        QStringLiteral("Icon=") + type.id,
        QStringLiteral("StartupWMClass=") + type.id,
        QStringLiteral("Terminal=false"),
        QStringLiteral("Categories=Qt;Graphics;Photography;Viewer;"),
        QStringLiteral("Keywords=photo;picture;slideshow;slides;album;"),
        QStringLiteral("MimeType=") + type.mimeType + u';',
        madeForUser,
    };
    return lines.join(u'\n') + u'\n';
}

QString entryProgram(const QString& entry) {
    for (const QString& line : entry.split(u'\n')) {
        if (line.startsWith(programKey)) {
            return entryText(line.mid(programKey.size()));
        }
    }
    return QString();
}

QString mimePackage(const FileType& type) {
    return QStringLiteral(
               "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
               "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">\n"
               "  <mime-type type=\"%1\">\n"
               "    <comment>%2</comment>\n"
               "    <sub-class-of type=\"text/plain\"/>\n"
               "    <icon name=\"%3\"/>\n"
               "    <glob pattern=\"*%4\"/>\n"
               "  </mime-type>\n"
               "</mime-info>\n")
        .arg(type.mimeType.toHtmlEscaped(), type.description.toHtmlEscaped(),
             mimeIconName(type.mimeType), type.extension.toHtmlEscaped());
}

QString mimeIconName(const QString& mimeType) {
    QString name = mimeType;
    return name.replace(u'/', u'-');
}

}  // namespace velorama
