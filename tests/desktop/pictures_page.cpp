#include "desktop/pictures_page.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace velorama::desktop {
namespace {

constexpr int kTwips = 15;
constexpr int kThumbnail = 64;  // pixels, its black frame included

// Left edges on the toolbar; the last button stands at the right.
constexpr std::array<int, 6> kButtons = {120, 705, 1500, 2085, 2880, 3465};

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

PicturesPage::PicturesPage(DesktopSession& session, Program& program)
    : m_session(session), m_program(program) {
    const WindowId found = session.waitForWindow(QStringLiteral("Velorama"), program.pid());
    m_window = session.activate(found) ? found : 0;
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

QPoint PicturesPage::firstSlide(int right) const {
    return {120 / kTwips + 50 + right, geometry().height() - (2460 / kTwips) + 50};
}

QPoint PicturesPage::splitter(int twips) const {
    return {(165 + twips) / kTwips + 2, 150};
}

QPoint PicturesPage::button(ToolbarItem item) const {
    const QSize size = geometry().size();
    const int left = item == Play ? size.width() * kTwips - 765 : kButtons.at(item);
    return {(left + 270) / kTwips, size.height() - (3180 - 270) / kTwips};
}

// The symbol of a button that is off is pale. A window that is not painted yet is dark all over.
bool PicturesPage::isOn(ToolbarItem item) const {
    const QPoint middle = geometry().topLeft() + button(item);
    const QImage symbol = m_session.glance({middle - QPoint(10, 10), QSize(20, 20)});
    int darkest = 255;
    int lightest = 0;
    for (int y = 0; y < symbol.height(); ++y) {
        for (int x = 0; x < symbol.width(); ++x) {
            darkest = std::min(darkest, qGray(symbol.pixel(x, y)));
            lightest = std::max(lightest, qGray(symbol.pixel(x, y)));
        }
    }
    return darkest < 100 && lightest > 180;
}

void PicturesPage::press(ToolbarItem item) const {
    // The pointer is as dark as a symbol.
    m_session.moveMouse(m_window, {2, geometry().height() - 2});
    EXPECT_TRUE(waitFor([&] { return isOn(item); })) << "button " << item;
    m_session.click(m_window, button(item));
}

void PicturesPage::menu(const QString& top, const QString& entry) const {
    m_session.key(QStringLiteral("alt+") + top);
    if (waitForPopup()) {
        m_session.key(entry);
    }
}

bool PicturesPage::waitForPopup() const {
    // A popup has no title.
    return waitFor([&] {
        const auto visible = m_session.run(
            QStringLiteral("xdotool"),
            {QStringLiteral("search"), QStringLiteral("--all"), QStringLiteral("--onlyvisible"),
             QStringLiteral("--pid"), QString::number(m_program.pid()), QStringLiteral("--class"),
             QStringLiteral("velorama")});
        return visible.value_or(QByteArray()).count('\n') > 1;
    });
}

WindowId PicturesPage::startShow() const {
    m_session.key(QStringLiteral("F5"));
    const QRect screen(QPoint(), m_session.glance().size());
    WindowId show = 0;
    waitFor([&] {
        for (const WindowId each : m_session.windows(QString(), m_program.pid())) {
            show = each != m_window && m_session.geometry(each) == screen ? each : show;
        }
        return show != 0 && m_session.activeWindow() == show;
    });
    return show;
}

bool PicturesPage::waitForEndOfShow() const {
    return waitFor([&] {
        const auto visible = m_session.windows(QString(), m_program.pid());
        return visible == std::vector<WindowId>{m_window};
    });
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
