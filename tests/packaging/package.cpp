#include "package.h"

#include <QDir>
#include <QProcess>

#include <gtest/gtest.h>

namespace velorama::test {
namespace {

constexpr int kLimit = 15 * 60 * 1000;  // milliseconds

const QString folder = QStringLiteral(VELORAMA_PACKAGE_FOLDER);

void mustRun(const QStringList& words, const QString& in = QString()) {
    const Outcome outcome = command(words, in);
    ASSERT_EQ(outcome.code, 0) << words.join(u' ').toStdString() << '\n'
                               << outcome.output.toStdString();
}

void removeFormerPackages() {
    const QDir build(package::buildFolder());
    for (const QString& name : build.entryList({QStringLiteral("*.deb")})) {
        QFile::remove(build.filePath(name));
    }
}

void layDown(const QString& root) {
    QDir(root).removeRecursively();
    mustRun({QStringLiteral("dpkg-deb"), QStringLiteral("-x"), package::file(), root});
}

class Packing : public testing::Environment {
public:
    void SetUp() override {
        const QString build = package::buildFolder();
        const QString cmake = QStringLiteral(VELORAMA_CMAKE);
        removeFormerPackages();
        // With the very flags of the release build the compiler's cache has everything already.
        ASSERT_NO_FATAL_FAILURE(
            mustRun({cmake, QStringLiteral("--preset"), QStringLiteral("package"),
                     QStringLiteral("-B"), build, QStringLiteral("-DVELORAMA_WERROR=ON")},
                    QStringLiteral(VELORAMA_SOURCE_DIR)));
        ASSERT_NO_FATAL_FAILURE(mustRun({cmake, QStringLiteral("--build"), build}));
        // A user's narrow mask must not narrow the package.
        const Outcome packed = shellCommand(QStringLiteral("umask 077 && cd '%1' && '%2' -G DEB")
                                                .arg(build, QStringLiteral(VELORAMA_CPACK)));
        ASSERT_EQ(packed.code, 0) << packed.output.toStdString();
        ASSERT_NO_FATAL_FAILURE(layDown(package::tree()));
        ASSERT_NO_FATAL_FAILURE(layDown(package::installed()));
        const QString share = package::installed() + QStringLiteral("/usr/share/");
        ASSERT_NO_FATAL_FAILURE(
            mustRun({QStringLiteral("update-mime-database"), share + QStringLiteral("mime")}));
        ASSERT_NO_FATAL_FAILURE(mustRun(
            {QStringLiteral("update-desktop-database"), share + QStringLiteral("applications")}));
    }
};

[[maybe_unused]] const auto* const packing = testing::AddGlobalTestEnvironment(new Packing);

}  // namespace

Outcome command(const QStringList& words, const QString& in) {
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setWorkingDirectory(in);
    process.start(words.front(), words.mid(1));
    if (!process.waitForFinished(kLimit)) {
        process.kill();
        process.waitForFinished();
        return {-1, process.errorString().toUtf8() + process.readAll()};
    }
    const bool ended = process.exitStatus() == QProcess::NormalExit;
    return {ended ? process.exitCode() : -1, process.readAll()};
}

Outcome shellCommand(const QString& words) {
    return command({QStringLiteral("sh"), QStringLiteral("-c"), words});
}

namespace package {

QString buildFolder() {
    return folder + QStringLiteral("/build");
}

QString file() {
    const QDir build(buildFolder());
    return build.filePath(build.entryList({QStringLiteral("*.deb")}).value(0));
}

QString tree() {
    return folder + QStringLiteral("/tree");
}

QString installed() {
    return folder + QStringLiteral("/installed");
}

QString field(const QString& name) {
    const Outcome outcome =
        command({QStringLiteral("dpkg-deb"), QStringLiteral("-f"), file(), name});
    return QString::fromUtf8(outcome.output).trimmed();
}

}  // namespace package
}  // namespace velorama::test
