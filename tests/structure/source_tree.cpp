#include "structure/source_tree.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace velorama {
namespace {

QString sourceFolder() {
    return QStringLiteral(VELORAMA_SOURCE_DIR "/src");
}

}  // namespace

QStringList sources(const QStringList& patterns) {
    const QDir root(sourceFolder());
    QStringList files;
    QDirIterator walk(root.path(), patterns, QDir::Files, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        files.append(root.relativeFilePath(walk.next()));
    }
    files.sort();
    return files;
}

QString content(const QString& file) {
    QFile handle(sourceFolder() + QLatin1Char('/') + file);
    EXPECT_TRUE(handle.open(QIODevice::ReadOnly)) << file.toStdString();
    return QString::fromUtf8(handle.readAll());
}

QStringList quotedIncludes(const QString& text) {
    static const QRegularExpression line(
        QStringLiteral(R"re(^[ \t]*#[ \t]*include[ \t]*"([^"]*)")re"),
        QRegularExpression::MultilineOption);
    QStringList found;
    for (auto match = line.globalMatch(text); match.hasNext();) {
        const QString name = match.next().captured(1);
        if (!name.endsWith(QLatin1String(".moc"))) {
            found.append(name);
        }
    }
    return found;
}

QString layerOf(const QString& file) {
    return file.contains(QLatin1Char('/')) ? file.section(QLatin1Char('/'), 0, 0)
                                           : QStringLiteral("main");
}

QString roomOf(const QString& file) {
    return file.section(QLatin1Char('/'), 1, -2);
}

}  // namespace velorama
