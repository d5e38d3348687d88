#include "controls/input/one_line.h"

#include <QApplication>
#include <QClipboard>

#include <gtest/gtest.h>

namespace velorama {
namespace {

TEST(OneLine, TakesTheFirstLineOfWhatIsPastedOverASelection) {
    const struct {
        const char* before;
        int start;
        int length;
        const char* pasted;
        const char* after;
    } rows[] = {
        {"", 0, 0, "new\nmore", "new"},
        {"abc", 0, 3, "xyz\nmore", "xyz"},
        {"abc", 3, 0, "d\ne", "abcd"},
        {"abc", 1, 1, "x\ny", "axc"},
        {"abc", 0, 3, "\n\nxyz\n", "xyz"},
        // What comes in begins like what it replaces.
        {"abc", 0, 3, "a\nbc", "a"},
        {"abc", 0, 3, "abcd\nx", "abcd"},
        {"abc", 0, 1, "a\n", "abc"},
        {"aabc", 1, 1, "a\nb", "aabc"},
        {"abab", 0, 2, "ab\nab", "abab"},
    };
    for (const auto& row : rows) {
        QLineEdit field(QString::fromLatin1(row.before));
        keepOneLine(field);
        field.setCursorPosition(row.start);
        field.setSelection(row.start, row.length);
        QApplication::clipboard()->setText(QString::fromLatin1(row.pasted));
        field.paste();
        EXPECT_EQ(field.text(), QLatin1String(row.after)) << row.before << " < " << row.pasted;
    }
}

TEST(OneLine, LeavesTheCursorBehindWhatWasPasted) {
    QLineEdit field(QStringLiteral("abc"));
    keepOneLine(field);
    field.setSelection(0, 2);
    QApplication::clipboard()->setText(QStringLiteral("a\nb"));
    field.paste();
    EXPECT_EQ(field.text(), QStringLiteral("ac"));
    EXPECT_EQ(field.cursorPosition(), 1);
}

TEST(OneLine, KeepsTheLinesThatTheProgramHasSet) {
    QLineEdit field;
    keepOneLine(field);
    field.setText(QStringLiteral("a\nb"));
    field.setCursorPosition(3);
    field.insert(QStringLiteral("c"));
    EXPECT_EQ(field.text(), QStringLiteral("a\nbc"));
}

}  // namespace
}  // namespace velorama
