#include "album_page.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QImage>

#include <gtest/gtest.h>

namespace velorama::test {
namespace {

using desktop::waitFor;

// Middles of the buttons, in twips from the window's right and bottom edge.
constexpr int kTwips = 15;
constexpr int kButtonsUp = 3680;
constexpr int kViewLeft = 1215;
constexpr int kBuildLeft = 3480;

const char* const wallpapers[] = {
    "Autumn/contents/images/2560x1600.jpg",    "ColorfulCups/contents/images/2560x1600.jpg",
    "Honeywave/contents/images/1080x1920.jpg", "SafeLanding/contents/images/1622x2880.jpg",
    "Flow/contents/images/5120x2880.jpg",      "PastelHills/contents/images/3200x2000.jpg"};

/// A photograph of Debian's wallpapers, small enough to be quick; every fourth one is square.
QImage smallPhotograph(int number) {
    const QString path =
        QStringLiteral("/usr/share/wallpapers/") +
        QLatin1String(wallpapers[static_cast<size_t>(number) % std::size(wallpapers)]);
    static QMap<QString, QImage> known;
    if (!known.contains(path)) {
        known[path] = QImage(path).scaled(400, 300, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }
    const QImage& image = known[path];
    const int side = std::min(image.width(), image.height());
    return number % 4 == 3 ? image.copy(0, 0, side, side) : image;
}

}  // namespace

AlbumPage::AlbumPage(desktop::DesktopSession& session, desktop::Program& program)
    : MainWindow(session, program) {
    ready_ = window() != 0 && turnTo(desktop::WebAlbumPage) && waitFor([this] {
                 return isDark({buildButton() - QPoint(70, 8), QSize(140, 16)});
             });
}

QPoint AlbumPage::buildButton() const {
    const QSize size = geometry().size();
    return {size.width() - kBuildLeft / kTwips, size.height() - kButtonsUp / kTwips};
}

QPoint AlbumPage::viewButton() const {
    const QSize size = geometry().size();
    return {size.width() - kViewLeft / kTwips, size.height() - kButtonsUp / kTwips};
}

bool AlbumPage::isViewOn() const {
    return isDark({viewButton() - QPoint(65, 8), QSize(130, 16)});
}

void AlbumPage::typeTitle(const QString& title) const {
    m_session.activate(window());
    // The mnemonic of the title's label.
    m_session.key(QStringLiteral("alt+g"));
    m_session.key(QStringLiteral("ctrl+a"));
    m_session.key(QStringLiteral("Delete"));
    m_session.type(title);
}

void AlbumPage::clickBuild(int times) const {
    const QPoint at = buildButton();
    times == 1 ? m_session.click(window(), at) : m_session.doubleClick(window(), at);
}

void AlbumPage::clickBuildAndClose() const {
    const QPoint at = buildButton();
    m_session.run(
        QStringLiteral("xdotool"),
        {QStringLiteral("mousemove"), QStringLiteral("--window"), QString::number(window()),
         QString::number(at.x()), QString::number(at.y()), QStringLiteral("click"),
         QStringLiteral("1"), QStringLiteral("key"), QStringLiteral("alt+F4")});
}

void AlbumPage::clickView() const {
    m_session.click(window(), viewButton());
}

bool AlbumPage::closeMessage(const QString& caption) const {
    const desktop::WindowId box = waitForDialog(caption);
    if (box == 0) {
        return false;
    }
    m_session.key(QStringLiteral("Return"));
    return waitFor([&] {
        const auto open = m_session.windows(caption, program().pid());
        return std::find(open.begin(), open.end(), box) == open.end();
    });
}

bool AlbumPage::build(const QString& title) const {
    typeTitle(title);
    clickBuild();
    return closeMessage(QStringLiteral("WebAlbum")) && waitForNoDialog();
}

void AlbumDesktop::takePhotograph(const QString& name, const QImage& image) {
    const QString path = sources() + u'/' + name;
    QDir().mkpath(sources());
    ASSERT_TRUE(image.save(path)) << name.toStdString();
    photographs.push_back({path, name, image.size()});
}

void AlbumDesktop::takePhotographs(int count) {
    const QDir samples(QStringLiteral(VELORAMA_SOURCE_DIR "/samples"));
    const QStringList own = samples.entryList(QDir::Files, QDir::Name);
    for (int number = 1; number <= count; ++number) {
        const qsizetype sample = number % 3 == 0 ? number / 3 % own.size() : -1;
        if (sample < 0) {
            const QImage image = smallPhotograph(number);
            ASSERT_FALSE(image.isNull()) << "plasma-workspace-wallpapers is not installed";
            takePhotograph(QStringLiteral("Photograph %1.jpg").arg(number, 3, 10, QLatin1Char('0')),
                           image);
            continue;
        }
        // Copied as they are: they are of all kinds that the program knows.
        const QString name = QString::number(number) + u' ' + own[sample];
        const QString path = sources() + u'/' + name;
        ASSERT_TRUE(QFile::copy(samples.filePath(own[sample]), path));
        photographs.push_back({path, name, QImage(path).size()});
    }
}

void AlbumDesktop::takeSpecks(int count) {
    QImage speck(8, 6, QImage::Format_RGB32);
    speck.fill(Qt::red);
    for (int number = 1; number <= count; ++number) {
        takePhotograph(QStringLiteral("%1.bmp").arg(number, 4, 10, QLatin1Char('0')), speck);
    }
}

void AlbumDesktop::start(const QStringList& environment) {
    const QString album = session.home() + QStringLiteral("/slides.vlr");
    QString text = QString::number(photographs.size()) + QStringLiteral("\r\n");
    for (const Photograph& photograph : photographs) {
        text += photograph.path + QStringLiteral("\r\n");
    }
    QFile file(album);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write((text + QStringLiteral("\r\n")).toUtf8());
    file.close();
    ASSERT_TRUE(QDir(session.documentsFolder()).mkpath(QStringLiteral(".")));
    desktop::Program& program = session.start({album}, environment);
    const desktop::MainWindow window(session, program);
    ASSERT_TRUE(window.waitForTitle(QStringLiteral("Velorama - ") + album));
    page.emplace(session, program);
    ASSERT_TRUE(page->isReady());
}

QString AlbumDesktop::albumFolder(const QString& title) const {
    return session.documentsFolder() + QStringLiteral("/My WebAlbum/") + title;
}

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QMap<QString, QByteArray> filesBelow(const QString& folder) {
    QMap<QString, QByteArray> files;
    QDirIterator walk(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const QString path = walk.next();
        files[QDir(folder).relativeFilePath(path)] = bytesOf(path);
    }
    return files;
}

QStringList unfinishedFiles(const QString& album) {
    QStringList unfinished;
    const QMap<QString, QByteArray> files = filesBelow(album);
    for (auto file = files.begin(); file != files.end(); ++file) {
        const bool isPage = file.key().endsWith(QLatin1String(".html"));
        const bool isWhole = file->startsWith("<HTML>") && file->endsWith("</BODY></HTML>\r\n");
        if ((isPage && !isWhole) || file.key().contains(QLatin1String(".velorama-"))) {
            unfinished.append(file.key());
        }
    }
    return unfinished;
}

}  // namespace velorama::test
