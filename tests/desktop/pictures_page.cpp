#include "desktop/pictures_page.h"

#include <gtest/gtest.h>

namespace velorama::desktop {
namespace {

constexpr int kTwips = 15;
constexpr int kThumbnail = 64;  // pixels, its black frame included

bool isBlack(const QImage& image, int x, int y) {
    return (image.pixel(x, y) & 0xFFFFFF) == 0;
}

bool isFramed(const QImage& image, int left, int top) {
    const int right = left + kThumbnail - 1;
    const int bottom = top + kThumbnail - 1;
    if (right >= image.width() || bottom >= image.height()) {
        return false;
    }
    for (int i = 0; i < kThumbnail; ++i) {
        if (!isBlack(image, left + i, top) || !isBlack(image, left, top + i) ||
            !isBlack(image, left + i, bottom) || !isBlack(image, right, top + i)) {
            return false;
        }
    }
    return true;
}

const QString showKey = QStringLiteral("frmSLIDESHOW\\");
const QString toolKey = QStringLiteral("frmTOOLSSETTINGS\\Items");

}  // namespace

PicturesPage::PicturesPage(DesktopSession& session, Program& program, double scale)
    : MainWindow(session, program, scale) {
    if (window() != 0) {
        EXPECT_TRUE(turnTo(FoldersPage));
    }
}

std::vector<QPoint> PicturesPage::thumbnails() const {
    const QRect place = geometry();
    const QImage image = m_session.glance(place);
    std::vector<QPoint> middles;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (isFramed(image, x, y)) {
                middles.emplace_back(x + kThumbnail / 2, y + kThumbnail / 2);
                x += kThumbnail - 1;
            }
        }
    }
    return middles;
}

bool PicturesPage::waitForThumbnails(int count) const {
    return waitFor([&] { return static_cast<int>(thumbnails().size()) == count; });
}

QPoint PicturesPage::splitter(int twips) const {
    return {(75 + twips) / kTwips + 2, 150};
}

std::optional<QString> storedItems(const Store& store) {
    return store.setting(showKey + QStringLiteral("Items"), QStringLiteral("Items"));
}

std::optional<QString> storedSlide(const Store& store, int number) {
    return store.setting(showKey + QStringLiteral("Selection"), QString::number(number));
}

QStringList storedSlides(const Store& store) {
    QStringList slides;
    const int count = storedItems(store).value_or(QString()).toInt();
    for (int number = 1; number <= count; ++number) {
        slides.append(storedSlide(store, number).value_or(QStringLiteral("(none)")));
    }
    return slides;
}

bool waitForSlides(const Store& store, const QStringList& wanted) {
    return waitFor([&] { return storedSlides(store) == wanted; });
}

std::optional<QString> filesLocation(const Store& store) {
    return store.setting(toolKey, QStringLiteral("Files Location"));
}

bool setFilesLocation(const Store& store, const QString& folder) {
    return store.setSetting(toolKey, QStringLiteral("Files Location"), folder);
}

bool setPace(const Store& store, const QString& interval, const QString& transition) {
    const QString key = QStringLiteral("frmCONFIG\\Items");
    return store.setSetting(key, QStringLiteral("INTERVAL"), interval) &&
           store.setSetting(key, QStringLiteral("TRANSITION"), transition);
}

}  // namespace velorama::desktop
