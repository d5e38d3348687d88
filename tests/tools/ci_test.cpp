// What the build server does, on a history of the test's own with commands that only take notes.

#include "script.h"

#include <gtest/gtest.h>

namespace velorama::test {
namespace {

class BuildServer : public testing::Test {
protected:
    void SetUp() override {
        const Outcome made = commands.run(QStringLiteral(
            "mkdir -p \"$FAKES/repo/.ci\" \"$FAKES/repo/tools\" \"$FAKES/repo/src\"\n"
            "cp .ci/run \"$FAKES/repo/.ci\"; cd \"$FAKES/repo\"\n"
            "printf '#!/bin/sh\\ncat \"$FAKES/tests\"; exit $(cat \"$FAKES/code\")\\n' >test\n"
            "printf '#!/bin/sh\\necho \"$*\" >>\"$FAKES/asked\"; cat \"$FAKES/entries\"\\n' "
            ">tools/fuzz.sh\n"
            "printf '#!/bin/sh\\necho \"$*\" >>\"$FAKES/asked\"; exit $(cat \"$FAKES/tidy\")\\n' "
            ">tools/tidy.sh\n"
            "chmod +x test tools/*.sh; git init -q -b main .\n"
            "git config user.email a@b; git config user.name a; git config commit.gpgsign false"));
        ASSERT_EQ(made.code, 0) << made.errors.toStdString();
        commands.write(QStringLiteral("tests"), "40 passed, 0 failed\n");
        commands.write(QStringLiteral("entries"), "drives: 9 inputs, clean\n2 passed, 0 failed\n");
        commands.write(QStringLiteral("tidy"), "0");
        commands.write(QStringLiteral("code"), "0");
        commit(QStringLiteral("one"));
        commit(QStringLiteral("two"));
    }

    void commit(const QString& name) const {
        EXPECT_EQ(inRepository(QStringLiteral("echo %1 >src/%1.cpp; echo >src/%1.txt; git add .; "
                                              "git commit -q -m %1")
                                   .arg(name))
                      .code,
                  0);
    }
    Outcome inRepository(const QString& words) const {
        return commands.run(QStringLiteral("cd \"$FAKES/repo\"; ") + words);
    }
    static std::string lastLine(const Outcome& outcome) {
        return outcome.output.trimmed().split(u'\n').constLast().toStdString();
    }
    std::string asked() const {
        return commands.read(QStringLiteral("asked")).trimmed().toStdString();
    }

    const FakeCommands commands;
};

TEST_F(BuildServer, AddsUpAndLooksAtTheLastCommit) {
    const Outcome outcome = inRepository(QStringLiteral(".ci/run"));
    EXPECT_EQ(outcome.code, 0) << outcome.errors.toStdString();
    EXPECT_EQ(lastLine(outcome), "43 passed, 0 failed");
    EXPECT_EQ(asked(), "10\nsrc/two.cpp");
}

TEST_F(BuildServer, LooksAtAllSinceMain) {
    inRepository(QStringLiteral("git update-ref refs/remotes/origin/main HEAD"));
    commit(QStringLiteral("three"));
    commit(QStringLiteral("four"));
    EXPECT_EQ(inRepository(QStringLiteral(".ci/run")).code, 0);
    EXPECT_EQ(asked(), "10\nsrc/four.cpp src/three.cpp");
}

TEST_F(BuildServer, FetchesTheCommitBeforeTheOneThatWasCloned) {
    const Outcome outcome = inRepository(
        QStringLiteral("git clone -q --depth 1 \"file://$FAKES/repo\" ../clone; ../clone/.ci/run"));
    EXPECT_EQ(outcome.code, 0) << outcome.errors.toStdString();
    EXPECT_EQ(asked(), "10\nsrc/two.cpp");
}

TEST_F(BuildServer, WithoutAHistoryCountsNoTidy) {
    const Outcome outcome = inRepository(QStringLiteral("rm -rf .git; .ci/run"));
    EXPECT_EQ(outcome.code, 0) << outcome.errors.toStdString();
    EXPECT_EQ(lastLine(outcome), "42 passed, 0 failed");
    EXPECT_EQ(asked(), "10");
}

TEST_F(BuildServer, FailsWithEachOfThem) {
    commands.write(QStringLiteral("tidy"), "1");
    Outcome outcome = inRepository(QStringLiteral(".ci/run"));
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(lastLine(outcome), "42 passed, 1 failed");
    commands.write(QStringLiteral("entries"), "1 passed, 1 failed\n");
    outcome = inRepository(QStringLiteral(".ci/run"));
    EXPECT_EQ(lastLine(outcome), "41 passed, 2 failed");
    // Tests that passed in a run that failed are not all that there is.
    commands.write(QStringLiteral("code"), "1");
    outcome = inRepository(QStringLiteral(".ci/run"));
    EXPECT_EQ(lastLine(outcome), "41 passed, 3 failed");
    // One that breaks off has failed too.
    commands.write(QStringLiteral("tests"), "no such compiler\n");
    outcome = inRepository(QStringLiteral(".ci/run"));
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(lastLine(outcome), "1 passed, 3 failed");
}

}  // namespace
}  // namespace velorama::test
