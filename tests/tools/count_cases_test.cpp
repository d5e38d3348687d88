// The last line of ./test, of a program that fails and is tried again.

#include "script.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace velorama::test {
namespace {

class CountCases : public testing::Test {
protected:
    /// Runs the program as one of CTest's, as ./test does, and counts.
    QString lastLine() const {
        commands.write(QStringLiteral("CTestTestfile.cmake"),
                       "add_test(flaky \"" VELORAMA_FLAKY "\" \"--gtest_output=xml:" +
                           commands.folder().toUtf8() +
                           "/reports/flaky.xml\")\nset_tests_properties(flaky PROPERTIES "
                           "WORKING_DIRECTORY \"" +
                           commands.folder().toUtf8() + "\")\n");
        const Outcome outcome = commands.run(QStringLiteral(
            "mkdir \"$FAKES/reports\"; ctest --test-dir \"$FAKES\" --repeat "
            "until-pass:2 --output-junit \"$FAKES/reports/ctest.junit\" "
            ">\"$FAKES/log\" 2>&1 || true; tools/count_cases.sh \"$FAKES/reports\""));
        EXPECT_EQ(outcome.code, 0) << outcome.errors.toStdString();
        return outcome.output.trimmed();
    }

    const FakeCommands commands;
};

TEST_F(CountCases, OfAProgramThatPassesCountOnce) {
    commands.write(QStringLiteral("tried"), "");
    EXPECT_EQ(lastLine(), QStringLiteral("3 passed, 0 failed"));
}

TEST_F(CountCases, OfAProgramTriedTwiceCountOnce) {
    EXPECT_EQ(lastLine(), QStringLiteral("3 passed, 0 failed"));
}

TEST_F(CountCases, ThatFailTwiceCountOnce) {
    commands.write(QStringLiteral("always"), "");
    EXPECT_EQ(lastLine(), QStringLiteral("2 passed, 1 failed"));
}

TEST_F(CountCases, OfAProgramThatCrashesAreOneThatFailed) {
    commands.write(QStringLiteral("crash"), "");
    EXPECT_EQ(lastLine(), QStringLiteral("0 passed, 1 failed"));
}

TEST(Reports, EachOfTheTestsHasAFileOfItsOwn) {
    const FakeCommands commands;
    const QString build = QStringLiteral(VELORAMA_BUILD_FOLDER);
    const Outcome outcome =
        commands.run(QStringLiteral("ctest --test-dir '%1' --show-only=json-v1").arg(build));
    const QJsonArray tests = QJsonDocument::fromJson(outcome.output.toUtf8())
                                 .object()[QStringLiteral("tests")]
                                 .toArray();
    int built = 0;
    for (const auto& test : tests) {
        const QString name = test.toObject()[QStringLiteral("name")].toString();
        const QJsonArray words = test.toObject()[QStringLiteral("command")].toArray();
        const QString report =
            QStringLiteral("--gtest_output=xml:%1/reports/%2.xml").arg(build, name);
        // CTest gives no command for what is not built.
        built += words.isEmpty() ? 0 : 1;
        EXPECT_TRUE(words.isEmpty() || words.contains(report)) << name.toStdString();
    }
    EXPECT_GT(built, 0);
}

}  // namespace
}  // namespace velorama::test
