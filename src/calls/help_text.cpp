#include "calls/help_text.h"

#include "calls/option_table.h"

#include <QStringList>

namespace velorama {
namespace {

/// Characters before an option's help.
constexpr int helpColumn = 28;

const QString head = QStringLiteral(
    "Usage: velorama [ALBUM]\n"
    "       velorama CALL\n"
    "\n"
    "Without a call the main window opens, with ALBUM or with the last album.\n"
    "\n"
    "Calls, done without the main window:\n");

const QString foot = QStringLiteral(
    "\n"
    "A first word that begins with two dashes and names an existing file is an\n"
    "album. Exit status: 0 done; 1 could not be done, one line on standard error\n"
    "tells why; 2 a wrong call. More in velorama(1).\n");

QString rowText(const OptionRow& row) {
    const QString words = (row.leads ? u"  --" : u"    --") + row.name +
                          (row.value.isEmpty() ? QString() : QString(u' ' + row.value));
    const QString margin(helpColumn, u' ');
    const QString help = QString(row.help).replace(u'\n', QString(u'\n' + margin));
    // Words that reach the help's column leave it a line of its own.
    const bool fits = words.size() + 2 <= helpColumn;
    return (fits ? words.leftJustified(helpColumn) : QString(words + u'\n' + margin)) + help +
           u'\n';
}

}  // namespace

QString callHelp() {
    QString text = head;
    for (const OptionRow& row : optionTable()) {
        text += rowText(row);
    }
    return text + foot;
}

}  // namespace velorama
