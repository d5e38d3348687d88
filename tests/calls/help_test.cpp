#include "calls/call_world.h"
#include "calls/help_text.h"
#include "calls/option_table.h"
#include "support/files.h"

#include <QFile>

#include <gtest/gtest.h>

namespace velorama::test {
namespace {

/// No home, nothing to write in, no display, no search path.
QProcessEnvironment nothing() {
    QProcessEnvironment environment;
    environment.insert(QStringLiteral("HOME"), QStringLiteral("/proc/no such home"));
    return environment;
}

TEST(Help, NamesEveryOptionInLinesThatFitATerminal) {
    const QString help = callHelp();
    for (const OptionRow& row : optionTable()) {
        const QString words =
            u" --" + row.name + (row.value.isEmpty() ? QString() : QString(u' ' + row.value));
        EXPECT_TRUE(help.contains(words)) << words.toStdString();
    }
    for (const QString& line : help.split(u'\n')) {
        EXPECT_LT(line.size(), 80) << line.toStdString();
        EXPECT_FALSE(line.endsWith(u' ')) << line.toStdString();
    }
}

TEST(Help, TheManualPageHasEveryOptionToo) {
    const QString page =
        QString::fromUtf8(contentOf(QStringLiteral(VELORAMA_SOURCE_DIR "/packaging/velorama.1.in")))
            .remove(u'\\');
    for (const OptionRow& row : optionTable()) {
        EXPECT_TRUE(page.contains(u"\n.B --" + row.name + u'\n') ||
                    page.contains(u"\n.BI --" + row.name + u' '))
            << row.name.toStdString();
    }
}

TEST(Help, IsPrintedWhereThereIsNothingElse) {
    const Outcome outcome = callProgram({QStringLiteral("--help")}, nothing());
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.err.toStdString(), "");
    EXPECT_EQ(outcome.out.toStdString(), callHelp().toStdString());
}

TEST(Help, TellsTheVersion) {
    const Outcome outcome = callProgram({QStringLiteral("--version")}, nothing());
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.err.toStdString(), "");
    EXPECT_EQ(outcome.out.toStdString(), "velorama " VELORAMA_VERSION "\n");
}

TEST(Help, AWrongCallIsOneLineAndTwo) {
    expectOneLine(callProgram({QStringLiteral("--nonsense")}, nothing()), 2,
                  QStringLiteral("unknown option --nonsense; see velorama --help"));
    expectOneLine(callProgram({QStringLiteral("--help"), QStringLiteral("a\nb\tc")}), 2,
                  QStringLiteral("one word too many: a?b?c"));
}

}  // namespace
}  // namespace velorama::test
