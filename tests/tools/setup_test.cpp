// What run, test and bench install, on machines that are told by a list of packages and an apt-get
// that only takes notes.

#include "script.h"

#include <gtest/gtest.h>

namespace velorama::test {
namespace {

class Setup : public testing::Test {
protected:
    void SetUp() override {
        commands.add(QStringLiteral("dpkg-query"), "cat \"$FAKES/here\"\n");
        // Notes its words; a simulation tells what the packages named would take away, and what
        // else is asked fails as long as another one has the lock.
        commands.add(QStringLiteral("apt-get"), R"(case " $* " in *" -s "*)
    for word; do [ ! -e "$FAKES/removed-by-$word" ] || cat "$FAKES/removed-by-$word"; done
    exit
esac
echo "$*" >>"$FAKES/asked"
if read -r line <"$FAKES/locks" && [ -n "$line" ]; then
    sed -i 1d "$FAKES/locks"
    echo "$line" >&2
    exit 100
fi
)");
        commands.add(QStringLiteral("sudo"), "exec \"$@\"\n");
        commands.add(QStringLiteral("sleep"), "");
        commands.write(QStringLiteral("locks"), "");
        installed({});
    }

    /// All packages of the machine but those of the list that `missing` names.
    void everythingBut(const QStringList& missing) const {
        const Outcome listed = commands.run(
            QStringLiteral("source tools/setup.sh; missing_packages build screen test bench"));
        QStringList here = listed.output.split(u'\n', Qt::SkipEmptyParts);
        ASSERT_GT(here.size(), 30);
        for (const QString& package : missing) {
            ASSERT_TRUE(here.removeOne(package)) << package.toStdString();
        }
        installed(here);
    }
    void installed(const QStringList& packages) const {
        QByteArray lines = "config-files gone\n";
        for (const QString& package : packages) {
            lines += "installed " + package.toUtf8() + '\n';
        }
        commands.write(QStringLiteral("here"), lines);
    }
    void add(const QByteArray& line) const {
        commands.write(QStringLiteral("here"),
                       commands.read(QStringLiteral("here")).toUtf8() + line);
    }
    Outcome need(const QString& groups) const {
        return commands.run(QStringLiteral("source tools/setup.sh; need ") + groups);
    }
    QStringList asked() const {
        return commands.read(QStringLiteral("asked")).split(u'\n', Qt::SkipEmptyParts);
    }

    const FakeCommands commands;
    const QString all = QStringLiteral("build screen test bench");
};

TEST_F(Setup, AsksForNothingWhereEverythingIs) {
    ASSERT_NO_FATAL_FAILURE(everythingBut({}));
    const Outcome outcome = need(all);
    EXPECT_EQ(outcome.code, 0) << outcome.errors.toStdString();
    EXPECT_EQ(asked(), QStringList());
}

TEST_F(Setup, InstallsWhatIsMissingAndRemovesNothing) {
    ASSERT_NO_FATAL_FAILURE(everythingBut({QStringLiteral("sox"), QStringLiteral("xvfb")}));
    EXPECT_EQ(need(all).code, 0);
    ASSERT_EQ(asked().size(), 2);
    EXPECT_TRUE(asked().at(0).endsWith(QStringLiteral(" update")));
    EXPECT_TRUE(asked().at(1).endsWith(
        QStringLiteral(" install -y --no-remove --no-install-recommends sox xvfb")))
        << asked().at(1).toStdString();
}

TEST_F(Setup, ABareMachineGetsOneSoundServer) {
    ASSERT_NO_FATAL_FAILURE(everythingBut({QStringLiteral("pulseaudio")}));
    EXPECT_EQ(need(all).code, 0);
    EXPECT_TRUE(asked().constLast().endsWith(QStringLiteral(" pulseaudio")));
}

TEST_F(Setup, TheSoundServerThatIsThereWillDo) {
    ASSERT_NO_FATAL_FAILURE(everythingBut({QStringLiteral("pulseaudio")}));
    add("installed pipewire-pulse\ninstalled wireplumber\n");
    EXPECT_EQ(need(all).code, 0);
    EXPECT_EQ(asked(), QStringList());
}

TEST_F(Setup, WhatWouldRemoveAnotherIsLeftOutAndNamed) {
    ASSERT_NO_FATAL_FAILURE(everythingBut({QStringLiteral("pulseaudio"), QStringLiteral("sox")}));
    commands.write(QStringLiteral("removed-by-pulseaudio"),
                   "Remv gnome-core [1:43+1]\nRemv pipewire-audio [0.3.65-3]\n");
    const Outcome outcome = need(all);
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(outcome.errors.contains(QStringLiteral(
        "Not installed: pulseaudio, which would remove gnome-core pipewire-audio\n")))
        << outcome.errors.toStdString();
    EXPECT_EQ(outcome.errors.count(QStringLiteral("Not installed")), 1);
    EXPECT_TRUE(asked().constLast().endsWith(QStringLiteral("-recommends sox")));
}

// At every run, a machine without a network included.
TEST_F(Setup, NothingIsAskedForWhereEverythingMissingWouldRemoveAnother) {
    ASSERT_NO_FATAL_FAILURE(everythingBut({QStringLiteral("pulseaudio")}));
    commands.write(QStringLiteral("removed-by-pulseaudio"), "Remv gnome-core [1:43+1]\n");
    commands.write(QStringLiteral("locks"), "E: Failed to fetch the lists.\n");
    const Outcome outcome = need(all);
    EXPECT_EQ(outcome.code, 0) << outcome.errors.toStdString();
    EXPECT_EQ(asked(), QStringList());
    EXPECT_EQ(outcome.errors.count(QStringLiteral("Not installed: pulseaudio")), 1);
}

// Old lists may not know yet what a package takes away.
TEST_F(Setup, NewListsAreAskedAgainWhatWouldGo) {
    ASSERT_NO_FATAL_FAILURE(everythingBut({QStringLiteral("pulseaudio"), QStringLiteral("sox")}));
    commands.write(QStringLiteral("removed-by-update"), "Remv gnome-core [1:43+1]\n");
    commands.add(QStringLiteral("apt-get"), R"(case " $* " in *" update "*)
    mv "$FAKES/removed-by-update" "$FAKES/removed-by-pulseaudio" ;;
*" -s "*)
    for word; do [ ! -e "$FAKES/removed-by-$word" ] || cat "$FAKES/removed-by-$word"; done
    exit
esac
echo "$*" >>"$FAKES/asked"
)");
    EXPECT_EQ(need(all).code, 0);
    EXPECT_TRUE(asked().constLast().endsWith(QStringLiteral("-recommends sox")))
        << asked().constLast().toStdString();
}

TEST_F(Setup, WaitsForAnotherApt) {
    ASSERT_NO_FATAL_FAILURE(everythingBut({QStringLiteral("sox")}));
    commands.write(
        QStringLiteral("locks"),
        "E: Could not get lock /var/lib/apt/lists/lock. It is held by process 12 (apt)\n"
        "E: Could not get lock /var/lib/apt/lists/lock. It is held by process 12 (apt)\n");
    const Outcome outcome = need(all);
    EXPECT_EQ(outcome.code, 0) << outcome.errors.toStdString();
    ASSERT_EQ(asked().size(), 4);
    for (const QString& words : asked()) {
        EXPECT_TRUE(words.contains(QStringLiteral("-o DPkg::Lock::Timeout=")));
    }
    EXPECT_EQ(outcome.errors.count(QStringLiteral("Waiting for another apt")), 1);
}

TEST_F(Setup, AnotherFailureOfAptEndsIt) {
    ASSERT_NO_FATAL_FAILURE(everythingBut({QStringLiteral("sox")}));
    commands.write(QStringLiteral("locks"), "E: The repository is not signed.\n");
    const Outcome outcome = need(all);
    EXPECT_EQ(outcome.code, 100);
    EXPECT_TRUE(outcome.errors.contains(QStringLiteral("not signed")));
    EXPECT_EQ(asked().size(), 1);
}

}  // namespace
}  // namespace velorama::test
