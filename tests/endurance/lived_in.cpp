#include "endurance/lived_in.h"

#include "support/waiting.h"

#include <QDir>
#include <QFile>
#include <QProcess>

#include <gtest/gtest.h>

namespace velorama::endurance {
namespace {

const QString viewKey = QStringLiteral("mfrmPRGMAIN\\View");
const QString toolKey = QStringLiteral("frmTOOLSSETTINGS\\Items");

void live(const Home& home, const QString& program, const QStringList& words) {
    const Outcome outcome = runProgram(program, words, home.environment());
    ASSERT_EQ(outcome.code, 0) << outcome.err.toStdString();
}

}  // namespace

Outcome runProgram(const QString& program, const QStringList& words,
                   const QProcessEnvironment& environment) {
    // Long enough for a busy machine; it only runs out where the program hangs.
    constexpr int milliseconds = 240'000;
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(environment.value(QStringLiteral("HOME")));
    process.start(program, words);
    const bool ended = process.waitForFinished(milliseconds);
    if (!ended || process.exitStatus() != QProcess::NormalExit ||
        process.error() == QProcess::FailedToStart) {
        process.kill();
        process.waitForFinished();
        return {-1, process.readAllStandardError()};
    }
    return {process.exitCode(), process.readAllStandardError()};
}

void liveIn(Home& home) {
    const QString worker = QStringLiteral(VELORAMA_WORKER);
    const QString program = QStringLiteral(VELORAMA_PROGRAM);
    ASSERT_TRUE(
        putSetting(home.settings(), toolKey, QStringLiteral("Files Location"), home.pictures()));
    ASSERT_TRUE(putSetting(home.settings(), viewKey, QStringLiteral("Slideshow"), home.album()));
    // What is to be imported later differs in many values from what is there then.
    ASSERT_NO_FATAL_FAILURE(live(home, worker, {QStringLiteral("at")}));
    ASSERT_NO_FATAL_FAILURE(
        live(home, program,
             {QStringLiteral("--export-settings"), home.imported(), QStringLiteral("--utf8")}));
    ASSERT_TRUE(QFile::remove(home.settings()));
    ASSERT_TRUE(
        putSetting(home.settings(), toolKey, QStringLiteral("Files Location"), home.pictures()));
    ASSERT_TRUE(putSetting(home.settings(), viewKey, QStringLiteral("Slideshow"), home.album()));
    ASSERT_NO_FATAL_FAILURE(live(home, worker, {QStringLiteral("bw")}));
    ASSERT_NO_FATAL_FAILURE(
        live(home, program, {QStringLiteral("--export-settings"), home.exported()}));
    ASSERT_TRUE(putSetting(home.settings(), QStringLiteral("Test"),
                           QStringLiteral("after the export"), QStringLiteral("1")));
    // Of each picture one for the found list and one for the slides.
    const qsizetype all = home.pictureFiles().size() * 2;
    // Those of a file that has only just been written are not kept: it may be written once more in
    // the same tick of the clock.
    test::comesTrue([&] {
        live(home, worker, {QString()});
        return testing::Test::HasFatalFailure() || home.state().thumbnails.size() >= all;
    });
    ASSERT_EQ(home.state().thumbnails.size(), all);
    home.keep();
    ASSERT_TRUE(runSql(home.keptThumbnails(), "DELETE FROM thumbnail WHERE id % 2 = 0"));
}

Between slidesBetween(const Home& home) {
    return [pictures = home.pictureFiles()](const QString& row, const QByteArray& value) {
        const QString text = QString::fromUtf8(value.mid(value.indexOf('|') + 1));
        if (row.endsWith(QLatin1String("frmSLIDESHOW\\Items|Items"))) {
            bool isNumber = false;
            const int count = text.toInt(&isNumber);
            return isNumber && count >= 0 && count <= pictures.size();
        }
        return row.contains(QLatin1String("frmSLIDESHOW\\Selection|")) &&
               (text.isEmpty() || pictures.contains(text));
    };
}

std::string joined(const QStringList& lines) {
    return lines.join(u'\n').toStdString();
}

}  // namespace velorama::endurance
