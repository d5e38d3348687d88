#include "peers.h"

#include "stopwatch.h"

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace velorama::bench {
namespace {

const QString vipsthumbnail = QStringLiteral("vipsthumbnail");
const QString vips = QStringLiteral("vips");

}  // namespace

std::optional<double> timeOfProgram(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    const Stopwatch watch;
    process.start(program, arguments);
    if (!process.waitForFinished(-1) || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0) {
        return std::nullopt;
    }
    return watch.milliseconds();
}

QString whyAbsent(const QString& program, const QString& package) {
    return QStandardPaths::findExecutable(program).isEmpty()
               ? QStringLiteral("%1 is not installed (Debian: %2)").arg(program, package)
               : QString();
}

QString scratchFolder() {
    static const QTemporaryDir folder(QFileInfo(QStringLiteral("/dev/shm")).isWritable()
                                          ? QStringLiteral("/dev/shm/velorama-bench-XXXXXX")
                                          : QString());
    return folder.path();
}

Measure vipsThumbnails(const QStringList& files) {
    const QStringList options = {QStringLiteral("-s"), QStringLiteral("64x64"),
                                 QStringLiteral("-o"), scratchFolder() + QStringLiteral("/%s.jpg")};
    return [options, files] { return timeOfProgram(vipsthumbnail, options + files); };
}

Measure vipsSlide(const std::function<QString()>& nextFile, QSize box) {
    return [nextFile, box] {
        return timeOfProgram(
            vips, {QStringLiteral("thumbnail"), nextFile(),
                   scratchFolder() + QStringLiteral("/slide.ppm"), QString::number(box.width()),
                   QStringLiteral("--height"), QString::number(box.height())});
    };
}

}  // namespace velorama::bench
