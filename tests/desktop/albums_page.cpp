#include "desktop/albums_page.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace velorama::desktop {
namespace {

// In twips on the page.
constexpr int kListLeft = 1650;
constexpr int kListTop = 90;
constexpr int kDescriptionWidth = 2900;
constexpr int kBehindColumns = 900;
constexpr QRect kSaveButton(105, 90 + 2 * 390, 1440, 345);
constexpr int kTwips = 15;

const QString viewKey = QStringLiteral("mfrmPRGMAIN\\View");
const QString detailsKey = QStringLiteral("mfrmPRGMAIN\\Details");
const QString totalKey = QStringLiteral("mfrmPRGMAIN\\Items Total");
const QString totalName = QStringLiteral("lvwALBUMSList Total");

QString albumName(int number) {
    return QStringLiteral("lvwALBUMS%1").arg(number);
}

bool isTinted(QRgb colour) {
    return qBlue(colour) > qRed(colour) + 8;
}

}  // namespace

AlbumsPage::AlbumsPage(DesktopSession& session, Program& program) : MainWindow(session, program) {
    if (window() != 0) {
        EXPECT_TRUE(turnTo(SlideshowsPage));
    }
}

// The tint of a selected row, in a column that only a long name reaches.
QRect AlbumsPage::selectedRow() const {
    const QPoint corner = onPage(kListLeft, kListTop);
    const QSize size = geometry().size();
    const int right = size.width() - (kListLeft - 1575) / kTwips;
    const int column = right - (kBehindColumns + kDescriptionWidth) / kTwips - 20;
    const QImage image = look({QPoint(column, corner.y()), QSize(1, size.height() / 3)});
    // The frame of a list with the keyboard is tinted too, but no row is as low.
    int top = -1;
    int height = 0;
    for (int y = 0, run = 0; y < image.height(); ++y) {
        run = isTinted(image.pixel(0, y)) ? run + 1 : 0;
        if (run > height) {
            top = y - run + 1;
            height = run;
        }
    }
    return top < 0 ? QRect() : QRect(corner.x(), corner.y() + top, column - corner.x(), height);
}

QRect AlbumsPage::selectedDescription() const {
    const QRect row = selectedRow();
    return {row.right() + 30, row.top() + 2, 150, row.height() - 4};
}

void AlbumsPage::doubleClickSelectedRow() const {
    m_session.doubleClick(window(), selectedRow().center());
}

bool AlbumsPage::isModified() const {
    return isDark(
        onPage(kSaveButton.x(), kSaveButton.y(), kSaveButton.width(), kSaveButton.height())
            .adjusted(4, 4, -4, -4));
}

void AlbumsPage::moveFirstSlide(int times) const {
    m_session.click(window(), firstSlide(-25 + 10 * times));
    press(MoveForward);
}

QByteArray albumText(const QString& firstLine, const QStringList& slides) {
    QString text = firstLine + QStringLiteral("\r\n");
    for (const QString& slide : slides) {
        text += slide + QStringLiteral("\r\n");
    }
    return (text + QStringLiteral("\r\n")).toUtf8();
}

QByteArray bytesOf(const QString& file) {
    QFile source(file);
    return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray();
}

bool putBytes(const QString& file, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(file).path());
    QFile target(file);
    return target.open(QIODevice::WriteOnly) && target.write(bytes) == bytes.size();
}

QStringList storedAlbums(const Store& store) {
    QStringList albums;
    const int count = store.setting(totalKey, totalName).value_or(QString()).toInt();
    for (int number = 1; number <= count; ++number) {
        albums.append(
            store.setting(detailsKey, albumName(number)).value_or(QStringLiteral("(none)")));
    }
    return albums;
}

bool setAlbums(const Store& store, const QStringList& albums) {
    bool isSet = store.setSetting(totalKey, totalName, QString::number(albums.size()));
    for (int number = 1; number <= albums.size(); ++number) {
        isSet = store.setSetting(detailsKey, albumName(number), albums.at(number - 1)) && isSet;
    }
    return isSet;
}

std::optional<QString> storedAlbum(const Store& store) {
    return store.setting(viewKey, QStringLiteral("Slideshow"));
}

std::optional<QString> openFolder(const Store& store) {
    return store.setting(detailsKey, QStringLiteral("CMD Open Folder"));
}

}  // namespace velorama::desktop
