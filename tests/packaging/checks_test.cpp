// What Debian's own tools say of the package.

#include "package.h"

#include <QDir>

#include <gtest/gtest.h>

namespace velorama::test {
namespace {

void expectClean(const QStringList& words) {
    const Outcome outcome = command(words);
    EXPECT_EQ(outcome.code, 0) << outcome.output.toStdString();
}

QString share(const char* file) {
    return package::tree() + QStringLiteral("/usr/share/") + QLatin1String(file);
}

TEST(PackageChecks, Lintian) {
    expectClean({QStringLiteral("lintian"), QStringLiteral("--allow-root"),
                 QStringLiteral("--fail-on"), QStringLiteral("error,warning"), package::file()});
}

TEST(PackageChecks, ProgramIsHardened) {
    const Outcome outcome = command(
        {QStringLiteral("hardening-check"), package::tree() + QStringLiteral("/usr/bin/velorama")});
    for (const char* line : {"Position Independent Executable: yes", "Stack protected: yes",
                             "Fortify Source functions: yes", "Read-only relocations: yes",
                             "Immediate binding: yes"}) {
        EXPECT_TRUE(outcome.output.contains(line))
            << line << " in " << outcome.output.toStdString();
    }
}

TEST(PackageChecks, DesktopEntry) {
    const Outcome outcome =
        command({QStringLiteral("desktop-file-validate"), share("applications/velorama.desktop")});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.output, "");
}

TEST(PackageChecks, Metainfo) {
    expectClean({QStringLiteral("appstreamcli"), QStringLiteral("validate"),
                 QStringLiteral("--no-net"), QStringLiteral("--pedantic"),
                 share("metainfo/invalid.velorama.velorama.metainfo.xml")});
}

TEST(PackageChecks, SumsAreThoseOfTheFiles) {
    const Outcome outcome =
        shellCommand(QStringLiteral("cd '%1' && dpkg-deb --ctrl-tarfile '%2' | tar -xO ./md5sums | "
                                    "md5sum -c --quiet --strict")
                         .arg(package::tree(), package::file()));
    EXPECT_EQ(outcome.code, 0) << outcome.output.toStdString();
}

TEST(PackageChecks, NothingRunsAtInstallation) {
    const Outcome outcome = shellCommand(
        QStringLiteral("dpkg-deb --ctrl-tarfile '%1' | tar -t | sort").arg(package::file()));
    EXPECT_EQ(outcome.output, "./control\n./md5sums\n");
}

TEST(PackageChecks, NeedsWhatTheLinkerDoesNotSee) {
    EXPECT_EQ(package::field(QStringLiteral("Package")), QStringLiteral("velorama"));
    const QString depends = package::field(QStringLiteral("Depends"));
    for (const char* needed : {"timgm6mb-soundfont | sf2-soundfont-gm", "libqt6svg6",
                               "libsqlite3-0", "libfluidsynth3", "libqt6widgets6 (>= 6."}) {
        EXPECT_TRUE(depends.contains(QLatin1String(needed)))
            << needed << " in " << depends.toStdString();
    }
    const QString recommends = package::field(QStringLiteral("Recommends"));
    for (const char* useful : {"xdg-utils", "shared-mime-info", "desktop-file-utils"}) {
        EXPECT_TRUE(recommends.contains(QLatin1String(useful))) << useful;
    }
}

// A new version wants a line in each.
TEST(PackageChecks, EverythingTellsTheSameVersion) {
    const QString version = package::field(QStringLiteral("Version"));
    EXPECT_EQ(version, QStringLiteral(VELORAMA_VERSION "-1"));
    const Outcome newest = command({QStringLiteral("dpkg-parsechangelog"), QStringLiteral("-l"),
                                    QStringLiteral(VELORAMA_SOURCE_DIR "/packaging/changelog"),
                                    QStringLiteral("-S"), QStringLiteral("Version")});
    EXPECT_EQ(newest.output.trimmed(), version.toUtf8());
    const Outcome release = shellCommand(QStringLiteral("grep -m1 '<release ' '%1'")
                                             .arg(share("metainfo/invalid.velorama.velorama."
                                                        "metainfo.xml")));
    EXPECT_TRUE(release.output.contains("version=\"" VELORAMA_VERSION "\""))
        << release.output.toStdString();
    const Outcome manual =
        shellCommand(QStringLiteral("zcat '%1'").arg(share("man/man1/velorama.1.gz")));
    EXPECT_TRUE(manual.output.contains("\"Velorama " VELORAMA_VERSION "\""));
}

}  // namespace
}  // namespace velorama::test
